#pragma once

#include <string_view>

#include "tagdata/chunk_kind.h"
#include "tagdata/raw.h"

namespace morvex {

// Turns the data of a tag from one kind into another. All converters have text on one side and stand in one
// list, which the constructor adds to; they are made at program start and never change.
class ACSConverter {
 public:
  ACSConverter(ChunkKind from, ChunkKind to);
  ACSConverter(const ACSConverter&) = delete;
  ACSConverter& operator=(const ACSConverter&) = delete;
  virtual ~ACSConverter() = default;

  // A failed conversion gives an empty Raw. Text in `output` needn't end in a NUL.
  virtual void Convert(const Raw& input, Raw& output) const = 0;

  ChunkKind From() const { return from_; }
  ChunkKind To() const { return to_; }
  const ACSConverter* Next() const { return next_; }
  static const ACSConverter* First() { return first_; }

 private:
  static constinit const ACSConverter* first_;

  ChunkKind from_;
  ChunkKind to_;
  const ACSConverter* next_;
};

// Converts straight or through a kind in between. Data of the wanted kind is shared; where no way leads,
// `output` is empty.
void Convert(ChunkKind from, const Raw& input, ChunkKind to, Raw& output);

// True for texts that are read as numbers: "12", "-1.5", "1.5e+3", with blanks behind. An exponent needs a
// point in front of it and a sign behind it. Blanks alone pass, too.
[[nodiscard]] bool IsNumberText(std::string_view text);

}  // namespace morvex
