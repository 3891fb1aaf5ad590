// A temporary folder for a run with real files, removed at its end.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

class FuzzFolder {
 public:
  FuzzFolder() {
    std::random_device random;
    do {
      folder_ = std::filesystem::temp_directory_path() / ("qx_fuzz." + std::to_string(random()));
    } while (!std::filesystem::create_directory(folder_));
  }
  FuzzFolder(const FuzzFolder&) = delete;
  FuzzFolder& operator=(const FuzzFolder&) = delete;
  ~FuzzFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::string Path(const char* name) const { return (folder_ / name).string(); }

  void Write(const char* name, std::string_view bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }

  std::string Read(const char* name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  void Remove(const char* name) const { std::filesystem::remove(folder_ / name); }

 private:
  std::filesystem::path folder_;
};
