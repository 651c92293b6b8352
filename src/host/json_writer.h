#pragma once

#include <cstdint>
#include <memory>
#include <ostream>
#include <string_view>

namespace morvex::host {

// Writes one JSON value to a stream as it comes, so that a list of any length takes no memory. Texts may hold any
// bytes: what is no UTF-8 is replaced. Who calls keeps to the grammar.
//
//   JsonWriter json(out);
//   json.BeginObject().Key("name").Text(name).EndObject();
class JsonWriter {
 public:
  enum class Place {
    kStream,  // a line of its own: a line end follows
    kPage,    // inside a script element of an HTML page: no text can end that element
  };

  explicit JsonWriter(std::ostream& out, Place place = Place::kStream);
  ~JsonWriter();
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  JsonWriter& BeginObject();
  JsonWriter& EndObject();
  JsonWriter& BeginArray();
  JsonWriter& EndArray();
  JsonWriter& Key(std::string_view name);

  JsonWriter& Text(std::string_view value);
  // null for the empty text.
  JsonWriter& TextOrNull(std::string_view value);
  JsonWriter& Number(int64_t value);
  // The fewest digits that read back as the same value; null for what is no number.
  JsonWriter& Real(float value);
  JsonWriter& Bool(bool value);
  JsonWriter& Null();

 private:
  class Engine;
  std::unique_ptr<Engine> engine_;
};

}  // namespace morvex::host
