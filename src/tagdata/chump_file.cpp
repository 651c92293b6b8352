#include "tagdata/chump_file.h"

#include <utility>
#include <vector>

#include "tagdata/binary_file.h"
#include "tagdata/chunk_writer.h"
#include "tagdata/soup_walk.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

ChunkWriter WriterOf(const TagContainer& container) {
  ChunkWriter writer;
  if (container.Chunk() != nullptr) AppendChildren(writer, *container.Chunk());
  return writer;
}

TagContainer RootOf(TDBBinaryFile& file) {
  ChunkRef root = file.GetRoot();
  return root->GetKind() == ChunkKind::kNull ? TagContainer() : TagContainer(std::move(root));
}

}  // namespace

void AppendChildren(ChunkWriter& writer, const ACSChunk& soup) {
  SoupWalk walk(soup, kMaxSoupDepth);
  while (walk.Next()) {
    switch (walk.What()) {
      case SoupWalk::Event::kLeaf:
        writer.Leaf(walk.Name(), *walk.Chunk());
        break;
      case SoupWalk::Event::kEnter:
        writer.BeginContainer(walk.Name());
        break;
      case SoupWalk::Event::kLeave:
        writer.EndContainer();
    }
  }
}

bool WriteChumpFile(const TagContainer& container, TStream& stream) {
  return WriterOf(container).WriteFile(stream);
}

std::string ChumpImage(const TagContainer& container) {
  return WriterOf(container).FileImage();
}

TagContainer ReadChumpFile(TStream& stream) {
  const auto file = Nox::MakeRef<TDBBinaryFile>();
  file->Read(stream);
  return RootOf(*file);
}

TagContainer ReadChumpImage(const Raw& image) {
  const auto file = Nox::MakeRef<TDBBinaryFile>();
  file->ReadImage(image);
  return RootOf(*file);
}

}  // namespace morvex
