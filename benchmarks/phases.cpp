// Times each phase of cutting a job's files by itself: phases ROWS SOURCE FOLDER [options of the
// benchmark library]. Every phase works through all files once an iteration.
#include <benchmark/benchmark.h>
#include <libdeflate.h>

#include <memory>
#include <numeric>
#include <optional>

#include "benchmarks/job.h"
#include "benchmarks/libpng_encoder.h"
#include "output/png_encoder.h"
#include "output/png_filters.h"
#include "output/resampler.h"
#include "platform/posix/granted_files.h"
#include "platform/vips/vips_pictures.h"

namespace {

using namespace tessarine;
using benchmark::DoNotOptimize;
using benchmark::State;
using Bytes = std::vector<std::uint8_t>;

// The inputs of every phase, made beforehand.
struct Inputs {
  benchmarks::Job job;
  ByteBuffer held;
  std::vector<Bitmap> scaled;
  std::vector<Bytes> filtered;
  std::vector<int> levels;  // of compression, as the encoder chooses
  std::vector<ByteBuffer> files;
};

Inputs makeInputs(benchmarks::Job job) {
  const ByteBuffer held = ByteBuffer::copyOf(job.source).value();
  Inputs inputs{std::move(job), held, {}, {}, {}, {}};
  VipsPictures pictures;
  const Picture source = pictures.decode(held).value();
  for (const benchmarks::Row& row : inputs.job.rows) {
    const Bitmap& bitmap =
        inputs.scaled.emplace_back(*resizedImage(source, row.width, row.height).value().bitmap);
    Bytes& rows = inputs.filtered.emplace_back(filteredByteCount(bitmap.size()));
    inputs.levels.push_back(compressionLevel(filterRows(bitmap, rows), rows.size()));
    inputs.files.push_back(encodePNG(bitmap).value());
  }
  return inputs;
}

// The source read once a file, as fast as memory gives it.
void readSource(State& state, const Inputs& inputs) {
  const auto* words = reinterpret_cast<const std::uint64_t*>(inputs.held.bytes().data());
  const std::size_t count = inputs.held.bytes().size() / sizeof *words;
  for (auto _ : state) {
    for (std::size_t file = 0; file < inputs.files.size(); ++file) {
      DoNotOptimize(std::accumulate(words, words + count, std::uint64_t{0}));
    }
  }
}

void view(State& state, const Inputs& inputs) {
  VipsPictures pictures;
  for (auto _ : state) {
    for (std::size_t file = 0; file < inputs.files.size(); ++file) {
      DoNotOptimize(pictures.decode(inputs.held));
    }
  }
}

void scale(State& state, const Inputs& inputs) {
  VipsPictures pictures;
  const Picture source = pictures.decode(inputs.held).value();
  for (auto _ : state) {
    for (const auto& row : inputs.job.rows)
      DoNotOptimize(resizedImage(source, row.width, row.height));
  }
}

void filter(State& state, const Inputs& inputs) {
  Bytes results;
  for (auto _ : state) {
    for (const Bitmap& bitmap : inputs.scaled) {
      results.resize(filteredByteCount(bitmap.size()));
      filterRows(bitmap, results);
    }
  }
}

using Compressor = std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)>;

// At one level, or at the encoder's.
void deflate(State& state, const Inputs& inputs, std::optional<int> level) {
  Bytes results;
  std::size_t bytes = 0;
  for (auto _ : state) {
    bytes = 0;
    for (std::size_t i = 0; i < inputs.filtered.size(); ++i) {
      const Bytes& rows = inputs.filtered[i];
      const Compressor compressor(libdeflate_alloc_compressor(level.value_or(inputs.levels[i])),
                                  libdeflate_free_compressor);
      results.resize(libdeflate_zlib_compress_bound(compressor.get(), rows.size()));
      bytes += libdeflate_zlib_compress(compressor.get(), rows.data(), rows.size(), results.data(),
                                        results.size());
    }
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}

template <class Encoder>
void encode(State& state, const Inputs& inputs, const Encoder& encoder) {
  std::size_t bytes = 0;
  for (auto _ : state) {
    bytes = 0;
    for (const Bitmap& bitmap : inputs.scaled) bytes += encoder(bitmap);
  }
  state.counters["bytes"] = static_cast<double>(bytes);
}

void writeFiles(State& state, const Inputs& inputs) {
  GrantedFiles files;
  files.grant(inputs.job.folder);
  for (auto _ : state) {
    for (std::size_t i = 0; i < inputs.files.size(); ++i) {
      const auto failure =
          files.writeInPlace(inputs.job.pathOf(inputs.job.rows[i]), inputs.files[i].bytes());
      if (failure) state.SkipWithError(failure->c_str());
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  const Inputs inputs = makeInputs(benchmarks::readJob(argc, argv));
  const auto phase = [&inputs](const std::string& name, auto function, auto... arguments) {
    benchmark::RegisterBenchmark(name.c_str(), [=, &inputs](State& state) {
      function(state, inputs, arguments...);
    })->Unit(benchmark::kMillisecond);
  };
  phase("read", readSource);
  phase("view", view);
  phase("scale", scale);
  phase("filter", filter);
  phase("deflate", deflate, std::nullopt);
  for (int level = 1; level <= 7; ++level)
    phase("deflate/" + std::to_string(level), deflate, level);
  phase("encode", [](State& state, const Inputs& from) {
    encode(state, from, [](const Bitmap& bitmap) { return encodePNG(bitmap)->bytes().size(); });
  });
  phase("libpng",
        [](State& state, const Inputs& from) { encode(state, from, benchmarks::encodedByLibpng); });
  phase("write", writeFiles);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
