#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "packages/lzss_decoder_tree.h"
#include "packages/lzss_encoder_tree.h"

namespace {

// The tree as the format tells it, step by step. Both sides of the codec share their counting, so only
// another way of it can show that they are wrong together.
class PlainTree {
 public:
  explicit PlainTree(int symbols) : nodeOf_(static_cast<std::size_t>((symbols + 1) / 2 * 2)) {
    const int leaves = static_cast<int>(nodeOf_.size());
    nodes_.resize(2 * nodeOf_.size() - 1);
    for (int node = 0; node < leaves; ++node)
      Set(node, {1, kNone, node});
    for (int node = leaves, child = 0; node <= Root(); ++node, child += 2)
      Set(node, {At(child).weight + At(child + 1).weight, child, kNone});
  }

  std::string Code(int symbol) const {
    std::string code;
    for (int node = nodeOf_[static_cast<std::size_t>(symbol)]; node != Root(); node = At(node).parent)
      code.insert(code.begin(), node % 2 != 0 ? '1' : '0');
    return code;
  }

  void Count(int symbol) {
    if (At(Root()).weight == 32768) Rebuild();
    int node = nodeOf_[static_cast<std::size_t>(symbol)];
    for (; node != Root(); node = At(node).parent) {
      const int weight = ++At(node).weight;
      int target = node;
      while (At(target + 1).weight < weight)
        ++target;
      const Content content = At(node);
      Set(node, At(target));
      Set(target, content);
      node = target;
    }
    ++At(node).weight;
  }

 private:
  static constexpr int kNone = -1;

  struct Content {
    int weight = 0;
    int child = kNone;   // the first of two
    int symbol = kNone;  // of a leaf
  };
  struct Node : Content {
    int parent = kNone;  // belongs to the place
  };

  Node& At(int node) { return nodes_[static_cast<std::size_t>(node)]; }
  const Node& At(int node) const { return nodes_[static_cast<std::size_t>(node)]; }
  int Root() const { return static_cast<int>(nodes_.size()) - 1; }
  bool IsFree(int node) const { return At(node).symbol == kNone && At(node).child == kNone; }
  bool IsLeaf(int node) const { return At(node).symbol != kNone; }

  void Set(int node, Content content) {
    static_cast<Content&>(At(node)) = content;
    if (content.symbol != kNone) nodeOf_[static_cast<std::size_t>(content.symbol)] = node;
    if (content.child != kNone) At(content.child).parent = At(content.child + 1).parent = node;
  }

  void Rebuild() {
    for (Node& node : nodes_)
      node.child = kNone;
    for (Node& node : nodes_)
      if (node.symbol != kNone) node.weight = (node.weight + 1) / 2;
    int slot = 0;
    for (int left = 0; left != Root(); left += 2) {
      const int weight = At(left).weight + At(left + 1).weight;
      while (!IsFree(slot))
        ++slot;
      int place = slot;
      if (At(slot - 1).weight > weight) {
        for (; At(place - 1).weight > weight; --place)
          Set(place, At(place - 1));
      } else {
        for (int leaf = slot + 1; leaf < Root() && (!IsLeaf(leaf) || At(leaf).weight < weight); ++leaf) {
          if (!IsLeaf(leaf)) continue;
          Set(place++, At(leaf));
          Set(leaf, {});
        }
      }
      Set(place, {weight, left, kNone});
    }
  }

  std::vector<Node> nodes_;
  std::vector<int> nodeOf_;  // each symbol's
};

// Symbols that give the tree a certain form.
struct Source {
  const char* what;
  unsigned symbols;  // of the tree
  unsigned used;     // different ones
  double steepness;  // 0 for equal chances
};

unsigned Draw(const Source& source, std::mt19937& random) {
  const double chance = static_cast<double>(random()) / 4294967296.0;
  return static_cast<unsigned>(std::pow(chance, 1 + source.steepness) * source.used);
}

std::uint64_t BitsOf(const std::string& code) {
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < code.size(); ++i)
    bits |= std::uint64_t{code[i] == '1'} << i;
  return bits;
}

TEST(LzssTree, BothSidesAgreeWithPlainTree) {
  const Source sources[] = {
      {"bytes", 273, 256, 0},   {"all symbols", 273, 273, 0}, {"one symbol", 273, 1, 0},
      {"two", 273, 2, 0},       {"five", 273, 5, 0},          {"some", 273, 40, 0.3},
      {"steep", 273, 273, 3},   {"very steep", 273, 273, 12}, {"offsets", 64, 64, 0},
      {"near ones", 64, 64, 2}, {"one offset", 64, 1, 0},     {"window 0", 16, 16, 0.5},
  };
  std::mt19937 random(4);
  for (const Source& source : sources) {
    PlainTree plain(static_cast<int>(source.symbols));
    Nox::LzssEncoderTree encoder(source.symbols);
    Nox::LzssDecoderTree decoder(source.symbols);
    // Far enough for three rebuilds; now and then another source takes over.
    for (int i = 0; i < 70000; ++i) {
      const unsigned symbol = Draw(i / 9000 % 3 == 2 ? sources[0] : source, random) % source.symbols;
      const std::string code = plain.Code(static_cast<int>(symbol));
      const Nox::LzssCode coded = encoder.Encode(symbol);
      ASSERT_EQ(coded.count, code.size()) << source.what << ", symbol " << i;
      ASSERT_EQ(coded.bits, BitsOf(code)) << source.what << ", symbol " << i;
      unsigned used = 0;
      const std::uint64_t withMore = coded.bits | std::uint64_t{random()} << coded.count;
      ASSERT_EQ(decoder.Decode(withMore, used), symbol) << source.what << ", symbol " << i;
      ASSERT_EQ(used, code.size()) << source.what << ", symbol " << i;
      plain.Count(static_cast<int>(symbol));
    }
  }
}

}  // namespace
