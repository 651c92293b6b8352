#pragma once

#include <atomic>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace Nox {

// An interned string in the size of a pointer: equal text is one node, so equality is identity. The null
// handle is the empty text. Any thread may make and use handles; nodes live until the process ends, so views
// of them never dangle, and a handle costs nothing to copy.
class PString {
 public:
  constexpr PString() = default;
  explicit PString(std::string_view text) : node_(text.empty() ? nullptr : Intern(text)) {}
  explicit PString(const char* text)
      : PString(text == nullptr ? std::string_view() : std::string_view(text)) {}
  explicit PString(const std::string& text) : PString(std::string_view(text)) {}

  std::string_view View() const {
    return node_ == nullptr ? std::string_view() : std::string_view(node_->Text(), node_->length);
  }
  operator std::string_view() const { return View(); }
  std::string Text() const { return std::string(View()); }
  const char* c_str() const { return node_ == nullptr ? "" : node_->Text(); }
  std::size_t Length() const { return node_ == nullptr ? 0 : node_->length; }
  bool Empty() const { return node_ == nullptr; }

  // The text in ASCII lower case. The answer is kept, so only the first call works.
  PString ToLower() const;

  bool EqualsIgnoreCase(std::string_view other) const;
  int CompareIgnoreCase(std::string_view other) const;

  // A hash of the text, the same in every run.
  std::size_t Hash() const { return node_ == nullptr ? 0 : node_->hash; }

  friend bool operator==(PString a, PString b) { return a.node_ == b.node_; }
  // By the text, bytes taken as unsigned.
  friend std::strong_ordering operator<=>(PString a, PString b) {
    return a.node_ == b.node_ ? std::strong_ordering::equal : a.View() <=> b.View();
  }
  friend bool operator==(PString a, std::string_view b) { return a.View() == b; }
  friend bool operator==(PString a, const char* b) { return a.View() == b; }
  friend bool operator==(PString a, const std::string& b) { return a.View() == b; }

  // What the handle points to; the characters and a NUL stand behind it.
  struct Node {
    std::uint32_t hash;
    std::uint32_t length;
    mutable std::atomic<const Node*> lower;  // null until first asked for
    const char* Text() const { return reinterpret_cast<const char*>(this + 1); }
  };

 private:
  explicit PString(const Node* node) : node_(node) {}
  static const Node* Intern(std::string_view text);

  const Node* node_ = nullptr;
};

}  // namespace Nox

template <>
struct std::hash<Nox::PString> {
  std::size_t operator()(Nox::PString text) const noexcept { return text.Hash(); }
};
