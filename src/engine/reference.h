#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>

namespace Nox {

// Base of objects that are held by counted references. An object begins with a count of 0 and is deleted by
// the Ref that lets go of it last. The count may be touched from any thread; the object itself may not.
class ReferenceCountMP {
 public:
  ReferenceCountMP() = default;
  // A copy is an object of its own and starts without holders.
  ReferenceCountMP(const ReferenceCountMP&) {}
  ReferenceCountMP& operator=(const ReferenceCountMP&) { return *this; }
  virtual ~ReferenceCountMP() = default;

  void AddReference() const { count_.fetch_add(1, std::memory_order_relaxed); }
  void Release() const {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }
  // True if exactly one reference is held, the caller's own, so that nobody else can see a change.
  bool IsUnique() const { return count_.load(std::memory_order_acquire) == 1; }

 private:
  mutable std::atomic<std::uint32_t> count_{0};
};

// A counted reference to a T, or null.
template <typename T>
class Ref {
 public:
  constexpr Ref() = default;
  constexpr Ref(std::nullptr_t) {}
  explicit Ref(T* object) : object_(object) { Hold(); }
  Ref(const Ref& other) : object_(other.object_) { Hold(); }
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <typename U>
  requires std::is_convertible_v<U*, T*> Ref(const Ref<U>& other) : object_(other.Get()) { Hold(); }
  ~Ref() {
    if (object_ != nullptr) object_->Release();
  }
  // By value: assigning a part of what this reference alone keeps alive is safe.
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  T* Get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }
  bool operator==(const Ref& other) const { return object_ == other.object_; }
  bool operator==(std::nullptr_t) const { return object_ == nullptr; }

 private:
  void Hold() const {
    if (object_ != nullptr) object_->AddReference();
  }

  T* object_ = nullptr;
};

template <typename T, typename... Args>
[[nodiscard]] Ref<T> MakeRef(Args&&... args) {
  return Ref<T>(new T(std::forward<Args>(args)...));
}

}  // namespace Nox

template <typename T>
struct std::hash<Nox::Ref<T>> {
  std::size_t operator()(const Nox::Ref<T>& ref) const noexcept { return std::hash<T*>()(ref.Get()); }
};
