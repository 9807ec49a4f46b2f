// thumbnail_bench [benchmark's options] [FOLDER...]: a fresh thumbnail of the photos in each folder against the bare
// decode of the same files at the same reduction; and a thumbnail from the cache, by the folder's size, against a small
// PNG file. Reading the files is part of all of them.
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <png.h>

#include "base/FileDateTime.h"
#include "base/QuickThumbsRecord.h"
#include "bench/BareDecode.h"
#include "bench/BenchRun.h"
#include "pictures/PaintPhoto.h"
#include "pictures/QuickThumbs.h"
#include "tests/support/TestPictures.h"
#include "window/FilmStripState.h"
#include "window/PicturesState.h"

namespace pixorra {
namespace {

constexpr int Photos = 12;

ImageBox& Target(BenchRun& run) {
  ImageBox& target = run.main.strip.SrcThumbnail.Load(1);
  target.SetVisible(true);
  return target;
}

std::vector<std::string> PhotosOf(BenchRun& run) {
  std::vector<std::string> paths;
  const FileListBox& list = run.main.strip.SrcFileList;
  for (int i = 0; i < list.ListCount(); ++i) paths.push_back(list.Path() + "\\" + list.List(i));
  return paths;
}

void Fresh(benchmark::State& state, const std::string& folder) {
  TemporaryDrive drive;
  LinkPhotos(drive, folder, Photos);
  WriteBenchState(drive);
  BenchRun run(drive);
  run.Start();
  ImageBox& target = Target(run);
  const std::vector<std::string> paths = PhotosOf(run);
  bool dragged = false;
  for (int i = 0; i < 3; ++i) PaintThumbnail(run.main, target, paths.at(0), dragged);  // the reduction settles
  QuickThumbsOf(run.main).DeleteQuickThumbs("C:\\Strip");
  std::size_t next = 0;
  for (auto _ : state) {
    PaintThumbnail(run.main, target, paths[next], dragged);
    if (++next < paths.size()) continue;
    next = 0;
    QuickThumbsOf(run.main).DeleteQuickThumbs("C:\\Strip");
  }
  state.counters["scale"] = run.main.pictures.lDecodeScale;
}

void Bare(benchmark::State& state, const std::string& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  paths.resize(std::min<std::size_t>(paths.size(), Photos));
  std::vector<char> file;
  std::vector<unsigned char> rows;
  std::size_t next = 0;
  for (auto _ : state) {
    file.resize(std::filesystem::file_size(paths[next]));
    std::ifstream(paths[next], std::ios::binary).read(file.data(), static_cast<std::streamsize>(file.size()));
    benchmark::DoNotOptimize(DecodeBare(file, 8, rows));
    next = (next + 1) % paths.size();
  }
}

// A cache file of `count` records with the real photos' ones spread over it.
std::vector<std::string> WriteCache(TemporaryDrive& drive, int count) {
  constexpr int Real = 50;
  std::vector<std::string> paths;
  drive.MakeFolder("C:\\Strip");
  const std::vector<std::uint8_t> bitmap = EncodeBmp(SmoothBitmap(80, 60));
  std::ofstream cache(drive.HostPath("C:\\Strip\\Thumbnails.tmp"), std::ios::binary);
  for (int i = 0; i < count; ++i) {
    const std::string name = std::to_string(100000 + i) + ".jpg";
    DateValue date = 38000;
    if (i % (count / Real) == 0) {
      paths.push_back("C:\\Strip\\" + name);
      drive.Write(paths.back(), "photo");
      date = GetFileDate(drive.DriveFiles(), paths.back());
    }
    std::vector<std::uint8_t> record(static_cast<std::size_t>(quickthumbs::RecordBytes));
    std::copy(bitmap.begin(), bitmap.end(), record.begin());
    const quickthumbs::EntryKey key = quickthumbs::MakeEntryKey(name, 5, date);
    std::copy(key.begin(), key.end(), record.begin() + quickthumbs::KeyOffset);
    cache.seekp(2 * i * quickthumbs::RecordBytes);
    cache.write(reinterpret_cast<const char*>(record.data()), static_cast<std::streamsize>(record.size()));
  }
  return paths;
}

void Cached(benchmark::State& state) {
  TemporaryDrive drive;
  const std::vector<std::string> paths = WriteCache(drive, static_cast<int>(state.range(0)));
  BenchRun run(drive);
  run.Start();
  ImageBox& target = Target(run);
  bool dragged = false;
  if (!QuickThumbsOf(run.main).ReadQuickThumb(paths[0], target, dragged)) state.SkipWithError("not in the cache");
  std::size_t next = 0;
  for (auto _ : state) {
    PaintThumbnail(run.main, target, paths[next], dragged);
    next = (next + 1) % paths.size();
  }
}
BENCHMARK(Cached)->Arg(100)->Arg(1000)->Arg(10000)->Arg(32767);

void SmallPng(benchmark::State& state) {
  TemporaryDrive drive;
  Bitmap bitmap = SmoothBitmap(80, 60);
  unsigned seed = 1;
  std::vector<std::uint8_t> rows;
  for (int y = 0; y < 60; ++y) {
    for (int i = 0; i < 240; ++i) {
      seed = seed * 1664525u + 1013904223u;
      rows.push_back(static_cast<std::uint8_t>(bitmap.Row(y)[i] ^ (seed >> 29)));  // grain, as photos have it
    }
  }
  drive.MakeFolder("C:\\Strip");
  const std::string file = drive.HostPath("C:\\Strip\\a.png");
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = 80;
  image.height = 60;
  image.format = PNG_FORMAT_BGR;
  png_image_write_to_file(&image, file.c_str(), 0, rows.data(), 240, nullptr);
  for (auto _ : state) {
    png_image read{};
    read.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&read, file.c_str())) state.SkipWithError("no PNG");
    read.format = PNG_FORMAT_BGR;
    png_image_finish_read(&read, nullptr, rows.data(), 240, nullptr);
  }
}
BENCHMARK(SmallPng);

}  // namespace
}  // namespace pixorra

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  for (int i = 1; i < argc; ++i) {
    const std::string folder = argv[i];
    benchmark::RegisterBenchmark(("Fresh " + folder).c_str(), [folder](benchmark::State& state) {
      pixorra::Fresh(state, folder);
    })->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("Bare " + folder).c_str(), [folder](benchmark::State& state) {
      pixorra::Bare(state, folder);
    })->Unit(benchmark::kMillisecond);
  }
  benchmark::RunSpecifiedBenchmarks();
}
