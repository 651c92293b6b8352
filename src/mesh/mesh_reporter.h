#pragma once

#include <string_view>

namespace morvex {

// What is found about a mesh. Behind each: the arguments of its message, in order.
enum class MeshFinding {
  kNotFound,           // path of the mesh
  kNotLoaded,          // path of the mesh
  kLoaded,             //
  kTextureMissing,     // path of the texture or image
  kTextureRefused,     // path of the texture, name of the mesh
  kAnimationLoaded,    //
  kAnimationUnfit,     // name of the animation; so are the three below
  kAnimationUnread,    //
  kAnimationNotFound,  //
  kNothingToAnimate,   //
};

// Whoever has a mesh loaded and wants to hear what is wrong with it. Used during the calls that it is handed
// to, and by the mesh it is handed to for as long as that lives.
class MeshReporter {
 public:
  virtual ~MeshReporter() = default;
  virtual void Error(MeshFinding finding, std::string_view argument) = 0;
  virtual void Warning(MeshFinding finding, std::string_view first, std::string_view second) = 0;
  // A step that went well.
  virtual void Trace(MeshFinding finding) = 0;
  // Whether the asset takes its files from another one, so that nothing is said of a mesh that isn't there.
  virtual bool AliasHidesMissingMesh() const = 0;
};

}  // namespace morvex
