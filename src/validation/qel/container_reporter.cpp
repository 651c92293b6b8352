#include "validation/qel/container_reporter.h"

#include "engine/path.h"
#include "validation/qel/data_manager.h"
#include "validation/qel/report.h"

namespace QELLib {
namespace {

MessageEntry EntryOf(morvex::MeshFinding finding) {
  using enum morvex::MeshFinding;
  switch (finding) {
    case kNotFound:
      return kEntryMeshNotFound;
    case kNotLoaded:
      return kEntryMeshNotLoaded;
    case kLoaded:
      return kEntryMeshLoaded;
    case kTextureMissing:
      return kEntryImageMissing;
    case kTextureRefused:
      return kEntryTextureRefused;
    case kAnimationLoaded:
      return kEntryAnimationLoaded;
    case kAnimationUnfit:
      return kEntryAnimationUnfit;
    case kAnimationUnread:
      return kEntryAnimationNotLoaded;
    case kAnimationNotFound:
      return kEntryAnimationNotFound;
    case kNothingToAnimate:
      return kEntryNothingToAnimate;
  }
  return kEntryMeshNotLoaded;
}

}  // namespace

void ContainerReporter::Error(morvex::MeshFinding finding, std::string_view argument) {
  ReportError(owner_, EntryOf(finding), InAsset(argument));
}

void ContainerReporter::Warning(morvex::MeshFinding finding, std::string_view first,
                                std::string_view second) {
  ReportWarning(owner_, EntryOf(finding), InAsset(first), second);
}

void ContainerReporter::Trace(morvex::MeshFinding finding) {
  ErrorHandler* const handler = ErrorHandler::Get();
  if (handler != nullptr) handler->Trace(MessageText(EntryOf(finding)), &owner_);
}

bool ContainerReporter::AliasHidesMissingMesh() const {
  return DataManager::Get()->hasAlias;
}

std::string ContainerReporter::InAsset(std::string_view path) const {
  return Nox::Path::MakeRelativeTo(path, assetPath_);
}

}  // namespace QELLib
