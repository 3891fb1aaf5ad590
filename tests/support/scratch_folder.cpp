#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <random>

#include "support/scratch_paths.h"

namespace fs = std::filesystem;

namespace {

// Chooses a random name that no other test process uses: programs of both builds may run at the same time.
fs::path MakeFreshFolder(const fs::path& parent) {
  std::random_device random;
  constexpr int kTries = 100;
  for (int i = 0; i < kTries; ++i) {
    const fs::path folder = parent / ("qx-test-" + std::to_string(random()) + std::to_string(random()));
    std::error_code error;
    if (fs::create_directory(folder, error)) return folder;
  }
  ADD_FAILURE() << "no scratch folder can be made in " << parent;
  return {};
}

}  // namespace

ScratchFolder::ScratchFolder() : root_(MakeFreshFolder(ScratchParent())), path_(WindowsForm(root_)) {}

ScratchFolder::~ScratchFolder() {
  if (!root_.empty()) {
    EXPECT_TRUE(RemoveTree(root_)) << root_;
  }
}

WString ScratchFolder::Path(WStringView name) const {
  WString path = path_;
  path += W('\\');
  path += name;
  return path;
}

fs::path ScratchFolder::NativePath(WStringView name) const { return root_ / NativeForm(name); }

WString ScratchFolder::Write(WStringView name, std::string_view bytes) const {
  std::ofstream file(NativePath(name), std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  EXPECT_TRUE(file) << NativePath(name);
  return Path(name);
}

WString ScratchFolder::MakeFolder(WStringView name) const {
  std::error_code error;
  fs::create_directories(NativePath(name), error);
  EXPECT_FALSE(error) << NativePath(name) << ": " << error.message();
  return Path(name);
}

std::string ScratchFolder::Read(WStringView name) const {
  std::ifstream file(NativePath(name), std::ios::binary);
  EXPECT_TRUE(file) << NativePath(name);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool ScratchFolder::Exists(WStringView name) const {
  std::error_code error;
  return fs::exists(fs::symlink_status(NativePath(name), error));
}

std::vector<WString> ScratchFolder::Names(WStringView folder) const {
  std::vector<WString> names;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(NativePath(folder), error)) {
    names.push_back(entry.path().filename().string<WCHAR>());
  }
  EXPECT_FALSE(error) << NativePath(folder) << ": " << error.message();
  std::sort(names.begin(), names.end());
  return names;
}
