#include "tagdata/binary_file.h"

#include <utility>

#include "tagdata/binary_changes.h"
#include "tagdata/binary_soup.h"
#include "tagdata/stream.h"

namespace morvex {

ACSFile::~ACSFile() = default;

TDBBinaryFile::TDBBinaryFile() = default;

// The changes hold chunks that may look into the body.
TDBBinaryFile::~TDBBinaryFile() {
  changes_.reset();
}

void TDBBinaryFile::Read(TStream& stream) {
  changes_.reset();
  body_ = Raw();
  uint32_t signature = 0;
  uint32_t reserved = 0;
  uint32_t size = 0;
  stream.ReadU32s(signature, version_, reserved, size);
  if (signature != kChumpSignature || size == 0 || size > kMaxChumpBody) return;
  if (stream.Size() - stream.Position() < int64_t{size}) return;
  auto block = std::make_unique_for_overwrite<uint8_t[]>(size);
  if (stream.Read(block.get(), size) != size || !ValidateChunks({block.get(), size})) return;
  body_ = ACSRawDataCore::TakeBytes(std::move(block), size);
}

bool TDBBinaryFile::ReadImage(const Raw& image) {
  changes_.reset();
  const ByteSpan body = ChumpBody({RawData(image), RawSize(image)}, version_);
  body_ = ACSRawDataCore::ViewBytes(body.data(), static_cast<uint32_t>(body.size()), image);
  return static_cast<bool>(body_);
}

void TDBBinaryFile::UseBody(const Raw& body) {
  changes_.reset();
  version_ = kChumpVersion;
  body_ = body;
}

ChunkRef TDBBinaryFile::GetRoot() {
  if (!body_ || (version_ != kChumpVersion && version_ != kChumpAnsiVersion)) return NullChunk();
  return ChunkRef(new TDBBinarySoup(Nox::Ref<TDBBinaryFile>(this), Body()));
}

BinaryChanges& TDBBinaryFile::MakeChanges() {
  if (changes_ == nullptr) changes_ = std::make_unique<BinaryChanges>();
  return *changes_;
}

}  // namespace morvex
