#pragma once

#include <cstdint>
#include <vector>

#include "engine/pstring.h"

namespace Nox {

// What a stream of vertices holds.
enum class StreamId : std::uint8_t {
  kPosition = 1,       // 3 floats
  kColour = 2,         // packed, 32 bits
  kNormal = 4,         // 3 floats
  kWeights1 = 5,       // blend weights: kWeights1 to kWeights1 + 3 hold one to four floats
  kPackedWeights = 9,  // 4 bytes of one 32-bit word, the first weight highest
  kBlendIndices = 10,  // 4 bytes
  kTexture0 = 15,      // texture coordinate sets 0 to 7: kTexture0 to kTexture0 + 7
  kAxis = 26,          // 3 floats
};

inline constexpr std::uint32_t kMaxTextureSets = 8;
inline constexpr std::uint32_t kMaxWeights = 4;

constexpr StreamId TextureStream(std::uint32_t set) {
  return static_cast<StreamId>(static_cast<std::uint32_t>(StreamId::kTexture0) + set);
}
// The stream of `count` float weights a vertex, 1 to kMaxWeights.
constexpr StreamId WeightStream(std::uint32_t count) {
  return static_cast<StreamId>(static_cast<std::uint32_t>(StreamId::kWeights1) + count - 1);
}

// The items of a vertex and how they lie in memory. A chunk has some blocks of vertices; an item lies in one
// of them, behind the items added to that block before it.
class VertexType {
 public:
  struct Item {
    StreamId id;
    std::uint32_t block;
    std::uint32_t offset;  // within a vertex of the block
    std::uint32_t bytes;
  };

  explicit VertexType(std::uint32_t number = 0) : number_(number) {}

  // Blocks come into being as they are named; an id may stand in a type once.
  VertexType& AddItem(std::uint32_t block, StreamId id, std::uint32_t bytes);

  std::uint32_t Number() const { return number_; }
  const std::vector<Item>& Items() const { return items_; }
  // Bytes from one vertex to the next, a number for each block.
  const std::vector<std::uint32_t>& Strides() const { return strides_; }
  // Null if the vertices have no such item.
  const Item* Find(StreamId id) const;

  // The names that types of the product are known by to programs that draw. From any thread.
  static void RegisterName(std::uint32_t number, PString name);
  // Empty for a number without a name.
  static PString RegisteredName(std::uint32_t number);

 private:
  std::uint32_t number_;
  std::vector<Item> items_;
  std::vector<std::uint32_t> strides_;
};

}  // namespace Nox
