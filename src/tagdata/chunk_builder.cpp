#include "tagdata/chunk_builder.h"

#include <utility>
#include <vector>

#include "tagdata/binary_file.h"
#include "tagdata/chunk_walker.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

// A chunk that is left out when the body is done. Never leaves this file.
constexpr ChunkType kStruck = static_cast<ChunkType>(255);

ByteSpan SpanOf(const std::string& bytes) {
  return {reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()};
}

// The body without the chunks that were struck out, in one pass over all depths.
std::string WithoutStruck(const std::string& body) {
  ChunkWriter out;
  out.Reserve(body.size());
  std::vector<ChunkWalker> open{ChunkWalker(SpanOf(body))};
  while (true) {
    if (!open.back().Next()) {
      open.pop_back();
      if (open.empty()) return out.TakeBody();
      out.EndContainer();
      continue;
    }
    const ChunkView& chunk = open.back().Chunk();
    if (chunk.type == kStruck) continue;
    if (!chunk.IsContainer()) {
      out.Data(chunk.Name(), chunk.Kind(), chunk.data.data(), chunk.data.size());
      continue;
    }
    out.BeginContainer(chunk.Name());
    open.emplace_back(chunk.data);
  }
}

}  // namespace

bool ChunkBuilder::Accepts(std::string_view name) {
  fits_ &= name.size() <= kMaxChunkName && writer_.Fits();
  return fits_;
}

// Strikes out the chunk that stood for a name.
void ChunkBuilder::Replace(std::string_view name, uint32_t chunk) {
  const uint32_t before = names_.Put(name, chunk);
  if (before == LevelNames::kNone) return;
  writer_.SetType(before, kStruck);
  struck_ = true;
}

void ChunkBuilder::Leaf(std::string_view name, ChunkKind kind, const void* data, size_t size) {
  if (!Accepts(name)) return;
  const uint32_t chunk = Place();
  writer_.Data(name, kind, data, size);
  Replace(name, chunk);
}

void ChunkBuilder::String(std::string_view name, std::string_view text) {
  if (!Accepts(name)) return;
  const uint32_t chunk = Place();
  writer_.String(name, text);
  Replace(name, chunk);
}

void ChunkBuilder::Remove(std::string_view name) {
  if (Accepts(name)) Replace(name, LevelNames::kNone);
}

void ChunkBuilder::Open(std::string_view name) {
  if (!Accepts(name)) return;
  const uint32_t chunk = Place();
  writer_.BeginContainer(name);
  Replace(name, chunk);
  names_.Open();
  ++depth_;
}

void ChunkBuilder::Close() {
  if (!fits_) return;
  writer_.EndContainer();
  names_.Close();
  --depth_;
}

TagContainer ChunkBuilder::Finish() {
  while (depth_ != 0)
    Close();
  std::string body = writer_.TakeBody();
  if (struck_) body = WithoutStruck(body);
  if (body.empty()) return TagContainer();
  const auto file = Nox::MakeRef<TDBBinaryFile>();
  file->UseBody(ACSRawDataCore::TakeText(std::move(body)));
  return TagContainer(file->GetRoot());
}

}  // namespace morvex
