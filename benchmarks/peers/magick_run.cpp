// Cuts a job's files with ImageMagick in one process and one thread.
#include <wand/MagickWand.h>

#include "benchmarks/job.h"

int main(int argc, char** argv) {
  using namespace tessarine::benchmarks;
  const Job job = readJob(argc, argv);
  MagickWandGenesis();
  MagickSetResourceLimit(ThreadResource, 1);
  timed([&] {
    for (const Row& row : job.rows) {
      MagickWand* wand = NewMagickWand();
      must(MagickReadImageBlob(wand, job.source.data(), job.source.size()), "decode");
      must(MagickResizeImage(wand, static_cast<std::size_t>(row.width),
                             static_cast<std::size_t>(row.height), UndefinedFilter, 1.0),
           "resize");
      MagickSetImageDepth(wand, 8);
      must(MagickWriteImage(wand, ("PNG32:" + job.pathOf(row)).c_str()), "write");
      DestroyMagickWand(wand);
    }
  });
  MagickWandTerminus();
}
