// A folder of 10,000 files on the computer: read, named by type and listed, and sorted by a column.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <fstream>

#include "Program.h"
#include "bench/NoScreen.h"
#include "files/ComputerPane.h"

namespace {

using namespace tessarin;

namespace fs = std::filesystem;

constexpr int kFiles = 10'000;

// The program without a phone, and a folder of many names, sizes and kinds.
class Bench {
 public:
  Bench() : folder_(Made()) {
    const char* kinds[] = {"mid", "jpg", "3gp", "thm", "txt", "mp3", "gif"};
    fs::create_directories(folder_ / "files");
    for (int i = 0; i < kFiles; ++i) {
      const std::string name = std::to_string(i * 7919 % kFiles) + " tune." + kinds[i % 7];
      std::ofstream(folder_ / "files" / name) << std::string(static_cast<std::size_t>(i % 90), 'x');
    }
    program_.Start();
    pane_.Open(folder_ / "files");
  }
  ~Bench() {
    host_.RequestEnd();
    fs::remove_all(folder_);
  }

  ComputerPane& pane() { return pane_; }
  ListView& list() { return program_.session().lvwPCMovie; }

 private:
  static fs::path Made() {
    std::string name = (fs::temp_directory_path() / "folder-bench-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) std::abort();
    return name;
  }

  fs::path folder_;
  NoScreen host_;
  Program program_{host_,
                   {folder_ / "app", TESSARIN_SHARE, folder_ / "registry.ini", folder_ / "dev"}};
  MimeTypes types_;
  ComputerPane pane_{program_.session(), program_.session().tvwPCMovie,
                     program_.session().lvwPCMovie, types_};
};

Bench& TheBench() {
  static Bench bench;
  return bench;
}

void ListAndSort(benchmark::State& state) {
  Bench& bench = TheBench();
  for (auto step : state) {
    bench.pane().fillList();
    benchmark::DoNotOptimize(bench.list().Count());
  }
  if (bench.list().Count() != kFiles) state.SkipWithError("not all files are listed");
}
BENCHMARK(ListAndSort)->Unit(benchmark::kMillisecond);

void SortByAColumn(benchmark::State& state) {
  Bench& bench = TheBench();
  int column = 0;
  for (auto step : state) bench.list().columnClicked(column++ % 4);
}
BENCHMARK(SortByAColumn)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
