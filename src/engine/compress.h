#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>

namespace Nox {

// What every compressor can do: code a block at once, or a stream piece by piece. An object serves one call
// or one stream at a time, on one thread. The class goes by the name Nox::Compress (below); it can't bear
// that name itself, since its first operation does.
class Compressor {
 public:
  // Takes the output of a stream; false stops the stream.
  using Callback = std::function<bool(std::span<const std::uint8_t>)>;
  // What Decompress answers about a damaged stream: never a size that a caller expects.
  static constexpr std::size_t kDamaged = SIZE_MAX;

  Compressor() = default;
  Compressor(const Compressor&) = delete;
  Compressor& operator=(const Compressor&) = delete;
  virtual ~Compressor() = default;

  // Codes `size` bytes into at most `capacity` bytes; gives the bytes placed in `dst`, or `size` if nothing
  // usable fits. A capacity of `size + 1` always suffices.
  virtual std::size_t Compress(std::uint8_t* dst, std::size_t capacity, const std::uint8_t* src,
                               std::size_t size, int level) = 0;
  // Decodes into `dst`, which says how much room there is, and gives the bytes written, or kDamaged.
  virtual std::size_t Decompress(std::span<std::uint8_t> dst, const std::uint8_t* src, std::size_t size) = 0;

  // A stream out: Init, any number of pieces, Done. False once the callback or the stream has failed.
  virtual bool InitStreamCompress(Callback callback, int level) = 0;
  virtual bool StreamCompress(const std::uint8_t* data, std::size_t size) = 0;
  virtual bool DoneStreamCompress() = 0;

  // A stream in, likewise; false as well for a damaged stream.
  virtual bool InitStreamDecompress(Callback callback) = 0;
  virtual bool StreamDecompress(const std::uint8_t* data, std::size_t size) = 0;
  virtual bool DoneStreamDecompress() = 0;

  virtual bool Init() { return true; }
  // Ends any stream and gives back all memory but the object's own.
  virtual void FreeBuffers() = 0;

 protected:
  void SetCallback(Callback callback) { callback_ = std::move(callback); }
  // Hands output of a stream to its owner.
  bool WriteBuf(const std::uint8_t* data, std::size_t size) { return callback_ && callback_({data, size}); }

 private:
  Callback callback_;
};

using Compress = Compressor;

}  // namespace Nox
