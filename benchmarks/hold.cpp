// Writes a picture file's pixels as the program holds them: hold PICTURE TIFF
#include <fstream>

#include "benchmarks/job.h"
#include "platform/vips/vips_pictures.h"

int main(int argc, char** argv) {
  using namespace tessarine;
  benchmarks::must(argc == 3, "usage: hold PICTURE TIFF");
  VipsPictures pictures;
  const auto picture = pictures.decodeFile(argv[1]);
  benchmarks::must(picture.has_value(), argv[1]);
  const auto tiff = pictures.tiffRepresentation(*picture);
  benchmarks::must(tiff.has_value(), "hold");
  std::ofstream file(argv[2], std::ios::binary);
  file.write(reinterpret_cast<const char*>(tiff->bytes().data()),
             static_cast<std::streamsize>(tiff->bytes().size()));
  benchmarks::must(file.good(), argv[2]);
}
