// quality draw FOLDER                            draws the probes as held pictures
// quality probes FOLDER                          measures a tool's copies of them
// quality reference ROWS SOURCE FOLDER SHRINK ENLARGE
//                                                 the least distance of a tool's files to the
//                                                 reference of its kernels, in decibels
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "benchmarks/job.h"
#include "benchmarks/probes.h"
#include "benchmarks/reference.h"
#include "platform/vips/vips_pictures.h"

namespace {

using namespace tessarine;
using benchmarks::must;

void hold(const Bitmap& bitmap, const std::string& path) {
  const auto tiff = VipsPictures().tiffRepresentation({bitmap.size(), bitmap});
  must(tiff.has_value(), "hold");
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(tiff->bytes().data()),
             static_cast<std::streamsize>(tiff->bytes().size()));
}

Bitmap readPNG(const std::string& path) {
  const auto picture = VipsPictures().decodeFile(path);
  must(picture && picture->bitmap, path.c_str());
  return *picture->bitmap;
}

void reference(int argc, char** argv) {
  const benchmarks::Job job = benchmarks::readJob(argc, argv);
  const auto source = VipsPictures().decode(ByteBuffer::copyOf(job.source).value());
  must(source.has_value(), argv[2]);
  const benchmarks::Plane plane = benchmarks::premultiplied(*source->bitmap);
  double least = 1000;
  for (const benchmarks::Row& row : job.rows) {
    const PixelSize size{row.width, row.height};
    const char* kernel = size.width <= plane.size.width ? argv[4] : argv[5];
    const double ratio =
        benchmarks::signalToNoise(benchmarks::premultiplied(readPNG(job.pathOf(row))),
                                  benchmarks::scaled(plane, size, kernel));
    least = std::min(least, ratio);
  }
  std::printf("%.1f\n", least);
}

}  // namespace

int main(int argc, char** argv) {
  must(argc >= 3, "usage");
  const std::string folder = argv[2];
  if (std::strcmp(argv[1], "draw") == 0) {
    hold(benchmarks::drawEdge(), folder + "/edge.tif");
    hold(benchmarks::drawDisc(), folder + "/disc.tif");
    hold(benchmarks::drawBlob(), folder + "/blob.tif");
  } else if (std::strcmp(argv[1], "probes") == 0) {
    std::printf("%.1f %d %.2f\n", benchmarks::overshoot(readPNG(folder + "/edge/48.png")),
                benchmarks::ringPixels(readPNG(folder + "/disc/48.png")),
                benchmarks::shift(readPNG(folder + "/blob/512.png")));
  } else {
    must(argc == 7, "usage");
    reference(argc - 1, argv + 1);
  }
}
