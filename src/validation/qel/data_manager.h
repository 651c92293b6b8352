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
#include "tagdata/tag_container.h"
#include "validation/qel/definitions.h"
#include "validation/qel/line_table.h"
#include "validation/qel/mesh_loader.h"
#include "validation/qel/message_entries.h"
#include "validation/qel/personal_details.h"

namespace QELLib {

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

  // The engine's context, kept for hosts that show meshes.
  virtual void SetContext(void* engineContext);
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
  // root then counts as the pack. The pack stays mounted until ReleaseAsset or the next call.
  void SetAsset(std::string_view packName, std::string_view path);
  void ReleaseAsset() { pack_.reset(); }
  void SetConfigName(std::string_view name) { configName_ = name; }
  const std::string& ConfigName() const { return configName_; }
  // The pack's name, or the root where there is none.
  std::string GetPackRoot() const;
  const Nox::Location& AssetLocation() const { return assetLocation_; }
  const std::string& AssetPath() const { return assetPath_; }  // inside the pack

  // Not owned, may be null.
  void SetMeshLoader(MeshLoader* loader) { meshLoader_ = loader; }
  // `path` lies in the asset's folder. Null if there is no mesh; else the manager owns it, as the one mesh of
  // that container.
  AssetMesh* LoadMesh(std::string_view path, Container& container);
  // The mesh of a container and the name of its file, null if it has none.
  struct LoadedMesh {
    std::string fileName;
    std::unique_ptr<AssetMesh> mesh;
  };
  const LoadedMesh* FindMesh(const Container* container) const;
  AssetMesh* CurrentMesh() const { return currentMesh_; }
  void ClearMeshes();
  void RemoveMesh(const Container& container);
  // False if some mesh of the asset isn't known, so that any name may be that of an attachment: it failed to
  // load, nobody loads meshes, or the asset takes its meshes from another one.
  bool AttachmentsAreKnown() const { return !loadFailed && !isMeshUnread && !hasAlias; }
  bool HasMeshLoader() const { return meshLoader_ != nullptr; }

  void RemoveTag(const Tag& tag);
  void ClearSourceEntries(Nox::PString source);
  void ClearSourceEntries() { sourceEntries_.clear(); }
  const Tags& AttachmentUsers() const { return attachmentUsers_; }
  const Tags& UniqueAttachmentUsers() const { return uniqueAttachmentUsers_; }

  // Of the asset under judgement.
  float build = 0;
  bool hasAlias = false;
  bool loadFailed = false;
  bool isMeshUnread = false;  // it names a mesh, and nobody loads meshes

 private:
  void Initialize(std::string_view dataFolder);
  void Shutdown();
  void ReadTables();
  AssetMesh* KeepMesh(std::string_view fileName, std::unique_ptr<AssetMesh> mesh, Container& container);

  void* context_ = nullptr;
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

  std::optional<morvex::PackMount> pack_;
  std::string packName_;
  std::string assetPath_;
  std::string configName_;
  Nox::Location assetLocation_;

  MeshLoader* meshLoader_ = nullptr;
  std::map<const Container*, LoadedMesh> meshes_;
  AssetMesh* currentMesh_ = nullptr;

  std::unordered_map<Nox::PString, std::vector<SourceEntry>> sourceEntries_;
  bool offersTags_ = false;  // some source entry is a tag
  std::unordered_map<Nox::PString, Tags> sourceUsers_;
  Tags attachmentUsers_;
  Tags uniqueAttachmentUsers_;
};

}  // namespace QELLib
