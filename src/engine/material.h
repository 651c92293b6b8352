#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/pstring.h"
#include "engine/reference.h"

namespace Nox {

class GeometryChunk;
class ResourceDatabase;
struct GeometryChunkSize;
struct StandardChunkHint;

struct Colour {
  float r = 0, g = 0, b = 0, a = 1;
  bool operator==(const Colour&) const = default;
};

// How a surface answers to light: four colours as a mesh file has them, and the specular exponent.
struct DisplayMaterial {
  std::array<Colour, 4> colours;
  float power = 10;
  bool operator==(const DisplayMaterial&) const = default;
};

// A texture that a material names.
struct TextureDefinition {
  std::uint32_t slot = 0;
  std::string name;  // below the folder or archive of the resource database
  float weight = 1;
  bool operator==(const TextureDefinition&) const = default;
};

// What SetTexture answers.
enum class SetTextureResult : std::uint8_t { kTaken = 0, kNoSuchSlot = 1, kNotFound = 3 };

// The surface of a part of a mesh. Made by a plug-in through the MaterialManager, filled by the reader of the
// mesh, shared by counted references. Nothing is drawn with it: it keeps what the file said of it. For one
// thread at a time.
class Material : public ReferenceCountMP {
 public:
  using Property = std::pair<std::string, std::string>;

  // The slots below this one are every material's own; what lies above belongs to derived classes.
  static constexpr std::uint32_t kBaseSlots = 8;

  // `type` as in "m.onetex", without the "m.".
  explicit Material(PString type) : type_(type) {}

  PString GetType() const { return type_; }

  // The decorated name under which it was asked for.
  void SetRequestName(std::string_view name) { requestName_ = name; }
  const std::string& GetRequestName() const { return requestName_; }

  void SetDisplayMaterialProperties(const DisplayMaterial& properties) { display_ = properties; }
  const DisplayMaterial& GetDisplayMaterialProperties() const { return display_; }
  void SetFlag(bool flag) { flag_ = flag; }
  bool GetFlag() const { return flag_; }
  void SetOpacity(float opacity) { opacity_ = opacity; }
  float GetOpacity() const { return opacity_; }

  void AddProperty(std::string key, std::string value) {
    properties_.emplace_back(std::move(key), std::move(value));
  }
  std::size_t GetNumProperties() const { return properties_.size(); }
  const std::vector<Property>& GetProperties() const { return properties_; }

  // An empty chunk with the streams that this material wants. Null if there is no memory for it.
  virtual Ref<GeometryChunk> CreateGeometryChunk(const GeometryChunkSize& size,
                                                 const StandardChunkHint& hint) const;

  // Puts a texture of the database into a slot. The definition is kept whatever the answer, so that a mesh
  // is checked, and written, with all the textures that it names.
  SetTextureResult SetTexture(std::uint32_t slot, const ResourceDatabase& database, std::string_view name,
                              float weight);
  // All that were set, also those that were refused, in order.
  const std::vector<TextureDefinition>& GetTextureDefinitions() const { return definitions_; }
  // The name of the texture that a slot holds; empty if it holds none.
  std::string_view GetTexture(std::uint32_t slot) const;

 protected:
  // Decides on a texture, and holds it if it takes it.
  virtual SetTextureResult TakeTexture(std::uint32_t slot, const ResourceDatabase& database,
                                       std::string_view name);
  // In the place of what the slot held; the empty name lets go of that.
  void HoldTexture(std::uint32_t slot, std::string_view name);

 private:
  struct HeldTexture {
    std::uint32_t slot;
    std::string name;
  };

  PString type_;
  std::string requestName_;
  DisplayMaterial display_;
  bool flag_ = false;
  float opacity_ = 1;
  std::vector<Property> properties_;
  std::vector<TextureDefinition> definitions_;
  std::vector<HeldTexture> held_;  // one for each slot of this material at most
};

}  // namespace Nox
