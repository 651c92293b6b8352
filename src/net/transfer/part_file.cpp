#include "net/transfer/part_file.h"

#include <utility>

#include "engine/file.h"
#include "engine/format.h"
#include "engine/owned_bytes.h"
#include "engine/read_file.h"
#include "net/transfer/url.h"

namespace morvex {
namespace {

constexpr std::size_t kLongestNote = 4096;

std::string NoteOf(const URL& url, std::string_view version) {
  URL asked = url;
  asked.password.Set("");
  return asked.ToString().append("\n").append(version).append("\n");
}

}  // namespace

PartFile::PartFile(std::string target)
    : target_(std::move(target)), path_(target_ + ".part"), notePath_(path_ + ".txt") {}

PartFile::~PartFile() {
  if (!lock_ || Nox::File::SizeOf(path_) != 0U) return;
  Nox::File::Unlink(notePath_);
  Nox::File::Unlink(path_);
}

std::string PartFile::Open() {
  // A device or a folder must not be replaced by what was fetched.
  if (Nox::File::Exists(target_) && !Nox::File::SizeOf(target_))
    return Nox::FormatText("\"%s\" is no plain file", target_);
  lock_ = Nox::FileLock::Take(path_, Nox::FileLock::Kind::kExclusive, 0);
  if (lock_) return {};
  return Nox::FormatText("\"%s\" can't be written, or another fetch is at it", path_);
}

FileBeginning PartFile::Find(const URL& url) const {
  const std::optional<Nox::OwnedBytes> note = Nox::ReadWholeFile(notePath_, kLongestNote);
  if (!note) return {};
  const std::string_view text = note->Text();
  const std::size_t second = text.find('\n') + 1;
  const std::size_t end = text.find('\n', second);
  if (second == 0 || end == text.npos) return {};
  const std::string_view version = text.substr(second, end - second);
  if (version.empty() || text != NoteOf(url, version)) return {};
  return {Nox::File::SizeOf(path_).value_or(0), std::string(version)};
}

// The old note goes first and the new one comes last: at no moment does one stand beside the bytes of another file.
void PartFile::Begin(const URL& url, std::string_view version) {
  Nox::File::Unlink(notePath_);
  Nox::File part;
  if (!part.Open(path_, Nox::OpenMode::kCreate) || version.empty()) return;
  const std::string text = NoteOf(url, version);
  Nox::File note;
  if (note.Open(notePath_, Nox::OpenMode::kCreate)) note.Write(text.data(), text.size());
}

bool PartFile::Commit() {
  if (!Nox::File::Rename(path_, target_)) return false;
  Nox::File::Unlink(notePath_);
  return true;
}

}  // namespace morvex
