#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "database/catalogue/pack_table.h"
#include "engine/location.h"
#include "engine/pstring.h"
#include "engine/resource_database.h"
#include "mesh/mesh_data.h"
#include "mesh/mesh_reporter.h"
#include "tagdata/tag_container.h"
#include "validation/qel/definitions.h"
#include "validation/qel/line_table.h"
#include "validation/qel/message_entries.h"
#include "validation/qel/personal_details.h"

namespace Nox {
class RenderKernel;
}

namespace QELLib {

class Container;
class Tag;

// Something that offers a value under a source's name: a tag its value, a container its name. Not owned.
class SourceEntry {
 public:
  explicit SourceEntry(const Tag& tag) : tag_(&tag) {}
  explicit SourceEntry(const Container& container) : container_(&container) {}
  std::string_view Value() const;
  const Tag* GetTag() const { return tag_; }

 private:
  const Tag* tag_ = nullptr;
  const Container* container_ = nullptr;
};

// What all containers of a validation need and no single one owns: the tables of the data folder, the place
// of the asset under judgement, the sources that values are looked up in, and the loaded meshes. Judges
// nothing itself. One in the process, used by one thread at a time. Tags and containers take themselves out
// of its lists when they go.
class DataManager {
 public:
  using Tags = std::vector<const Tag*>;

  // Reads what every run needs; a missing folder leaves the tables empty. The second form takes over a host's
  // own kind of manager. ErrorHandler::Create must have run.
  static void Create(std::string_view dataFolder);
  static void Create(std::unique_ptr<DataManager> manager, std::string_view dataFolder);
  // Null before Create and after Destroy.
  static DataManager* Get();
  // Writes the personal details back.
  static void Destroy();

  DataManager() = default;
  DataManager(const DataManager&) = delete;
  DataManager& operator=(const DataManager&) = delete;
  virtual ~DataManager();

  // The engine that meshes are loaded with; not owned. Without one they get null materials.
  virtual void SetContext(const Nox::RenderKernel* engine);
  // These five are for hosts that watch; nothing happens here.
  virtual void OnMeshChanged();
  virtual void AddSourceUser(Nox::PString source, const Tag& tag);
  virtual void AddSourceEntry(Nox::PString source, SourceEntry entry);
  virtual void OnSourcesChanged();
  virtual void OnAttachmentUsersChanged();
  virtual void OnUniqueAttachmentUsersChanged();
  virtual void AddAttachmentUser(const Tag& tag);
  virtual void AddUniqueAttachmentUser(const Tag& tag);  // twice, if called twice
  // True for the value of an entry of the source, else for the name of an attachment of any loaded mesh.
  virtual bool IsValueInSource(std::string_view value, Nox::PString source) const;

  // Empty beyond the table.
  Nox::PString GetString(uint32_t index) const;
  const std::string& Language() const { return language_; }
  PersonalDetails& Details() { return personalDetails_; }

  // At most once, unless forced.
  void LoadDefinitions(bool force);
  const TagContainer& GetDefinitions() const { return definitions_.Root(); }
  Definitions& GetDefinitionCache() { return definitions_; }
  // Empty for a file that isn't there.
  const LineTable& GetLineTable(Nox::PString fileName);
  // True if the configuration's kind is one of those made with the new form.
  bool IsNewFormKind(const TagContainer& config);

  // The asset's folder: a path in a pack, or with no pack a path of the disk, whose first component below the
  // root then counts as the pack. The pack stays mounted until ReleaseAsset or the next call; meshes must be
  // gone by then.
  void SetAsset(std::string_view packName, std::string_view path);
  void ReleaseAsset();
  void SetConfigName(std::string_view name) { configName_ = name; }
  const std::string& ConfigName() const { return configName_; }
  // The pack's name, or the root where there is none.
  std::string GetPackRoot() const;
  const Nox::Location& AssetLocation() const { return assetLocation_; }
  const std::string& AssetPath() const { return assetPath_; }  // inside the pack

  // Names the vertices of the bump materials, and makes one material of each type that meshes may ask for; the
  // log is told of those that can't be made. Once, behind SetContext and before any mesh is loaded.
  void RegisterMorvexBumpVertexType() const;

  // Loads the mesh that a file tag of a container names; `path` lies in the asset's folder. Null if there is no
  // mesh; else the manager owns it, as the one mesh of that container. Findings are reported on the container.
  // A file of another kind is judged, where there is something to judge, and gives no mesh.
  morvex::MeshData* LoadMesh(std::string_view path, Container& container);
  // A mesh of the asset's folder for the caller alone, until ReleaseAsset. Null if it can't be loaded, of which
  // nothing is said.
  std::unique_ptr<morvex::MeshData> PeekMesh(std::string_view path);
  // The mesh of a container and the name of its file, null if it has none.
  struct LoadedMesh {
    std::string fileName;
    std::unique_ptr<morvex::MeshReporter> reporter;
    std::unique_ptr<morvex::MeshData> mesh;
  };
  const LoadedMesh* FindMesh(const Container* container) const;
  morvex::MeshData* CurrentMesh() const { return currentMesh_; }
  // Frees the meshes with all that was loaded for them.
  void ClearMeshes();
  void RemoveMesh(const Container& container);
  // False if some mesh of the asset isn't known, so that any name may be that of an attachment: it failed to
  // load, or the asset takes its meshes from another one.
  bool AttachmentsAreKnown() const { return !loadFailed && !hasAlias; }

  void RemoveTag(const Tag& tag);
  void ClearSourceEntries(Nox::PString source);
  void ClearSourceEntries() { sourceEntries_.clear(); }
  const Tags& AttachmentUsers() const { return attachmentUsers_; }
  const Tags& UniqueAttachmentUsers() const { return uniqueAttachmentUsers_; }

  // Of the asset under judgement.
  float build = 0;
  bool hasAlias = false;
  bool loadFailed = false;

 private:
  void Initialize(std::string_view dataFolder);
  void Shutdown();
  void ReadTables();
  std::string ResourceName(std::string_view path) const;  // of a path in the asset's folder
  std::unique_ptr<morvex::MeshData> MakeMesh(std::string_view path);
  morvex::MeshData* KeepMesh(LoadedMesh loaded, const Container& container);

  const Nox::RenderKernel* engine_ = nullptr;
  std::string dataFolder_;
  bool hasDataFolder_ = false;
  std::string language_;
  std::vector<Nox::PString> strings_;
  PersonalDetails personalDetails_;
  PersonalDetails savedDetails_;
  bool detailsSaved_ = false;

  bool definitionsLoaded_ = false;
  Definitions definitions_;
  bool tablesRead_ = false;
  LineTables lineTables_;
  std::vector<Nox::PString> newFormKinds_;

  Nox::ResourceDatabase hostFiles_{Nox::PString()};  // for an asset that lies outside of the root
  std::optional<morvex::PackMount> pack_;
  Nox::ResourceDatabase* resources_ = &hostFiles_;  // where the asset's files are found
  std::string packName_;
  std::string assetPath_;
  std::string configName_;
  Nox::Location assetLocation_;

  std::map<const Container*, LoadedMesh> meshes_;
  morvex::MeshData* currentMesh_ = nullptr;

  std::unordered_map<Nox::PString, std::vector<SourceEntry>> sourceEntries_;
  bool offersTags_ = false;  // some source entry is a tag
  std::unordered_map<Nox::PString, Tags> sourceUsers_;
  Tags attachmentUsers_;
  Tags uniqueAttachmentUsers_;
};

}  // namespace QELLib
