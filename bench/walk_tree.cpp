// Walks a tree with DirectoryWalker and prints the number of its files and their bytes. bench/compare
// compares it with find.
#include <cstdio>

#include "frame/services/directory_walker.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: walk_tree FOLDER\n", stderr);
    return 2;
  }
  DirectoryWalker walker;
  walker.Reset(FromUtf8(argv[1]));
  walker.pattern = W("*");
  walker.flags = DirectoryWalker::kDefaultFlags | DirectoryWalker::kRecurse;
  walker.useBasicInfo = true;
  DirectoryWalker::Code code = walker.NextWithRetry();
  while (code == DirectoryWalker::kFile) code = walker.NextWithRetry();
  std::printf("%d files, %lld bytes, code %d\n", walker.fileCount, static_cast<long long>(walker.totalSize),
              code);
  return code == DirectoryWalker::kEnd ? 0 : 1;
}
