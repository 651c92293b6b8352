#include "mesh/animation.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/mesh/mesh_builder.h"

namespace morvex {
namespace {

using mesh_builder::F32;
using mesh_builder::PaddedText;
using mesh_builder::U32;
using mesh_builder::Wrapper;

std::string Body(float seconds = 2.5F) {
  return U32(100) + F32({seconds}) + U32(2) + PaddedText("b.root") + PaddedText("arm1");
}

std::optional<Animation> Parse(const std::string& bytes) {
  const std::vector<uint8_t> own(bytes.begin(), bytes.end());  // so that a sanitizer sees its end
  return ParseAnimation(own);
}

TEST(Animation, IsReadAsItIsDrawn) {
  const std::string golden(
      "JIRF\x24\0\0\0ANIM\x64\0\0\0\0\0\x20\x40\x02\0\0\0\x06\0\0\0b.root\0\0\x04\0\0\0arm1", 44);
  EXPECT_EQ(Wrapper("ANIM", Body()), golden);
  for (const std::string& bytes : {golden, golden + "behind it"}) {
    const auto animation = Parse(bytes);
    ASSERT_TRUE(animation);
    EXPECT_EQ(animation->seconds, 2.5F);
    EXPECT_EQ(animation->bones, (std::vector<std::string>{"b.root", "arm1"}));
  }
  EXPECT_TRUE(Parse(Wrapper("ANIM", U32(100) + F32({0}) + U32(0))));
}

TEST(Animation, AnythingElseIsNone) {
  const std::string whole = Wrapper("ANIM", Body());
  for (size_t size = 0; size < whole.size(); ++size)
    EXPECT_FALSE(Parse(whole.substr(0, size))) << size;
  constexpr float kInfinite = std::numeric_limits<float>::infinity();
  const std::pair<const char*, std::string> rows[] = {
      {"another kind", Wrapper("IDXM", Body())},
      {"another wrapper", "RIFF" + whole.substr(4)},
      {"another version", Wrapper("ANIM", U32(101) + Body().substr(4))},
      {"size too small", Wrapper("ANIM", Body(), -4)},
      {"size too large", Wrapper("ANIM", Body(), 4)},
      {"bytes left over", Wrapper("ANIM", Body() + U32(0))},
      {"more bones than there are", Wrapper("ANIM", U32(100) + F32({1}) + U32(0xFFFFFFFF))},
      {"a name that is too long", Wrapper("ANIM", U32(100) + F32({1}) + U32(1) + U32(0xFFFFFFFF))},
      {"negative", Wrapper("ANIM", Body(-1))},
      {"endless", Wrapper("ANIM", Body(kInfinite))},
      {"no number", Wrapper("ANIM", Body(kInfinite - kInfinite))},
  };
  for (const auto& [what, bytes] : rows)
    EXPECT_FALSE(Parse(bytes)) << what;
}

}  // namespace
}  // namespace morvex
