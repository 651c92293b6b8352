#include "host/json_writer.h"

#include <rapidjson/writer.h>

#include <cmath>
#include <string>

#include "engine/number_text.h"
#include "host/visible_text.h"

namespace morvex::host {

namespace {

constexpr size_t kBlock = 65536;

// What rapidjson writes to.
class Sink {
 public:
  using Ch = char;

  Sink(std::ostream& out, JsonWriter::Place place) : out_(out), place_(place) { block_.reserve(kBlock); }

  void Put(char c) {
    // Outside of texts the bracket doesn't occur.
    if (c == '<' && place_ == JsonWriter::Place::kPage) {
      block_ += "\\u003c";
    } else {
      block_ += c;
    }
    if (block_.size() >= kBlock) Flush();
  }
  void Flush() {
    out_ << block_;
    block_.clear();
  }

 private:
  std::ostream& out_;
  const JsonWriter::Place place_;
  std::string block_;
};

}  // namespace

class JsonWriter::Engine {
 public:
  Engine(std::ostream& out, Place place)
      : sink(out, place), writer(sink), isStream(place == Place::kStream) {}

  Sink sink;
  rapidjson::Writer<Sink> writer;
  const bool isStream;
};

JsonWriter::JsonWriter(std::ostream& out, Place place) : engine_(std::make_unique<Engine>(out, place)) {}

JsonWriter::~JsonWriter() {
  if (engine_->isStream) engine_->sink.Put('\n');
  engine_->sink.Flush();
}

JsonWriter& JsonWriter::BeginObject() {
  engine_->writer.StartObject();
  return *this;
}

JsonWriter& JsonWriter::EndObject() {
  engine_->writer.EndObject();
  return *this;
}

JsonWriter& JsonWriter::BeginArray() {
  engine_->writer.StartArray();
  return *this;
}

JsonWriter& JsonWriter::EndArray() {
  engine_->writer.EndArray();
  return *this;
}

JsonWriter& JsonWriter::Key(std::string_view name) {
  engine_->writer.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
  return *this;
}

JsonWriter& JsonWriter::Text(std::string_view value) {
  const std::string text = ValidUtf8(value);
  engine_->writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
  return *this;
}

JsonWriter& JsonWriter::TextOrNull(std::string_view value) {
  return value.empty() ? Null() : Text(value);
}

JsonWriter& JsonWriter::Number(int64_t value) {
  engine_->writer.Int64(value);
  return *this;
}

JsonWriter& JsonWriter::Real(float value) {
  if (!std::isfinite(value)) return Null();
  const std::string digits = Nox::ShortestFloat(value);
  engine_->writer.RawValue(digits.data(), digits.size(), rapidjson::kNumberType);
  return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
  engine_->writer.Bool(value);
  return *this;
}

JsonWriter& JsonWriter::Null() {
  engine_->writer.Null();
  return *this;
}

}  // namespace morvex::host
