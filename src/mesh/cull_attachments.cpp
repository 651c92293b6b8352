#include "mesh/cull_attachments.h"

#include "engine/text.h"

namespace morvex {

void FillCullAttachments(MorvexIndexedMeshLODDefinition& definition) {
  for (const MeshAttachment& attachment : definition.attachments) {
    if (Nox::FindIgnoreCase(attachment.name, "a.") != std::string_view::npos)
      definition.cullAttachments.push_back(attachment.name);
  }
}

}  // namespace morvex
