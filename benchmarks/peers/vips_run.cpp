// Cuts a job's files with libvips in one thread.
#include <vips/vips.h>

#include "benchmarks/job.h"

int main(int argc, char** argv) {
  using namespace tessarine::benchmarks;
  const Job job = readJob(argc, argv);
  must(VIPS_INIT(argv[0]) == 0, "vips");
  vips_concurrency_set(1);
  vips_cache_set_max(0);  // otherwise the source is decoded for the first file alone

  timed([&] {
    for (const Row& row : job.rows) {
      VipsImage* scaled = nullptr;
      must(vips_thumbnail_buffer(const_cast<std::uint8_t*>(job.source.data()), job.source.size(),
                                 &scaled, row.width, "height", row.height, "size", VIPS_SIZE_FORCE,
                                 nullptr) == 0,
           "thumbnail");
      must(vips_pngsave(scaled, job.pathOf(row).c_str(), nullptr) == 0, "pngsave");
      g_object_unref(scaled);
    }
  });
}
