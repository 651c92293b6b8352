#include "frontend/tool/asset_folder_updater.h"

#include <cstdio>
#include <iostream>
#include <optional>
#include <string_view>
#include <vector>

#include "engine/file.h"
#include "engine/find.h"
#include "engine/path.h"
#include "frontend/tool/mention_rewriter.h"
#include "frontend/tool/name_matcher.h"

namespace morvex {

namespace Path = Nox::Path;

namespace {

constexpr std::string_view kTemporaryName = "tempfile.tmx";

// Files that may mention other files of their asset.
constexpr const char* kMentioningExtensions[] = {"txt", "texture.txt", "im", "pm", "max", "gmax"};

// The work list of one asset folder: its files, each with its path below `base`.
struct AssetFileList {
  std::string base;
  std::vector<std::string> files;
};

void Say(std::string_view what, std::string_view subject) {
  std::cout << what << subject << '\n';
}

// Links to folders are left alone: what they lead to belongs to somebody else, or comes round to itself.
bool IsOwnFolder(const Nox::DirEntry& entry) {
  return entry.IsDir() && !entry.isLink;
}

AssetFileList ListAssetFiles(const std::string& base) {
  AssetFileList list{base, {}};
  std::vector<std::string> folders{""};
  while (!folders.empty()) {
    const std::string folder = std::move(folders.back());
    folders.pop_back();
    const auto entries = Nox::ListFolder(Path::AddPath(base, folder));
    if (!entries) continue;
    for (const Nox::DirEntry& entry : *entries) {
      const std::string path = Path::AddPath(folder, entry.name);
      if (IsOwnFolder(entry)) {
        folders.push_back(path);
      } else if (entry.isRegular) {
        list.files.push_back(path);
      }
    }
  }
  return list;
}

bool MayMentionNames(const std::string& file) {
  for (const char* extension : kMentioningExtensions) {
    if (Path::IsExt(file, extension)) return true;
  }
  return false;
}

// Copies `path` to `temporary` with every mention made safe. None if either can't be opened or written.
std::optional<bool> RewriteInto(const std::string& path, const std::string& temporary,
                                const NameMatcher& names) {
  Nox::File in;
  if (!in.Open(path, Nox::OpenMode::kReadShared)) {
    Say("open failed at  ", path);
    return std::nullopt;
  }
  Nox::File out;
  if (!out.Open(temporary, Nox::OpenMode::kCreate)) {
    Say("temp open failed at  ", temporary);
    return std::nullopt;
  }
  MentionRewriter rewriter(names, in, out);
  const bool changed = rewriter.Run([](std::string_view mention) { Say("content:  ", mention); });
  if (!rewriter.Complete() || !out.Close()) {
    Say("temp open failed at  ", temporary);
    return std::nullopt;
  }
  return changed;
}

void RewriteMentions(const AssetFileList& list) {
  const NameMatcher names(list.files);
  const std::string temporary = Path::AddPath(list.base, kTemporaryName);
  for (const std::string& file : list.files) {
    if (!MayMentionNames(file)) continue;
    const std::string path = Path::AddPath(list.base, file);
    const std::optional<bool> changed = RewriteInto(path, temporary, names);
    if (changed.value_or(false)) {
      Say("Updating file   ", path);
      // The rename replaces the file in one step; taking the file away first could lose it.
      if (!Nox::File::Rename(temporary, path)) Say("rename failed at  ", path);
    }
    Nox::File::Unlink(temporary);
  }
}

void RenameFiles(const AssetFileList& list) {
  for (const std::string& file : list.files) {
    const std::string path = Path::AddPath(list.base, file);
    std::string safe = path;
    for (std::size_t i = safe.size(); i > 0 && !Path::IsSeparator(safe[i - 1]); --i) {
      safe[i - 1] = FixNameChar(safe[i - 1]);
    }
    if (safe == path) continue;
    std::cout << "rename " << path << " -> " << safe << '\n';
    // A file that has the safe name already must not be replaced.
    if (Nox::File::Exists(safe) || !Nox::File::Rename(path, safe)) std::cout << "(failed!)\n";
  }
}

void UpdateAsset(const std::string& path) {
  const AssetFileList list = ListAssetFiles(path);
  RewriteMentions(list);
  RenameFiles(list);
}

}  // namespace

char FixNameChar(char byte) {
  if (static_cast<unsigned char>(byte) > 0x7E) return '_';
  return byte == '`' || byte == '=' || byte == '#' ? 'x' : byte;
}

void UpdateAssetFolders(const std::string& path) {
  if (Nox::File::Exists(Path::AddPath(path, "config.txt"))) {
    UpdateAsset(path);
    return;
  }
  if (const auto entries = Nox::ListFolder(path)) {
    for (const Nox::DirEntry& entry : *entries) {
      if (IsOwnFolder(entry)) UpdateAssetFolders(Path::AddPath(path, entry.name));
    }
  }
  std::cout.flush();
  std::string line;
  std::getline(std::cin, line);
}

}  // namespace morvex
