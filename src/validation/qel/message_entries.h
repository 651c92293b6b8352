#pragma once

#include <cstdint>

namespace QELLib {

// Places in the message table. Behind each: the arguments that its placeholders take, in order.
enum MessageEntry : uint32_t {
  kEntryAnimationUnreadable = 88,    // file name
  kEntryAnimationFileType = 93,      // tag name, container name
  kEntryImageFileType = 94,          // tag name, container name
  kEntryMeshFileType = 95,           // tag name, container name
  kEntryEmptyPath = 96,              // tag name, container name
  kEntryEmptyName = 97,              // tag name, container name
  kEntryEmptyComboBox = 101,         // tag name, container name
  kEntryEmptyListBox = 102,          // tag name, container name
  kEntryEmptyString = 103,           // tag name, container name
  kEntryNotAnAttachment = 104,       // tag name, container name, mesh file name or "..."
  kEntryUnknownTag = 107,            // name, container name
  kEntryNoChildDefinition = 108,     // name
  kEntryNoKindDefinition = 110,      // kind name
  kEntryKindNotTopLevel = 112,       //
  kEntryChildNotBuilt = 113,         // name
  kEntryCompulsoryMissing = 114,     // tag name
  kEntryNoKind = 115,                //
  kEntryValueNotInList = 116,        // value, tag name
  kEntryObsoleteTag = 117,           // name, container name
  kEntryNoAttachmentParent = 118,    // container name
  kEntryAlias = 119,                 //
  kEntryOldMesh = 122,               //
  kEntryDataFileUnreadable = 123,    // file name
  kEntryDataFolderUnreadable = 124,  //
  kEntryErrorPrefix = 125,           //
  kEntryWarningPrefix = 126,         //
  kEntryInformationPrefix = 127,     //
  kEntryMeshNotFound = 131,          // file path
  kEntryMeshNotLoaded = 132,         // file path
  kEntryImageMissing = 133,          // file path
  kEntryMeshLoaded = 138,            //
  kEntryAnimationLoaded = 139,       //
  kEntryAnimationUnfit = 140,        // file path
  kEntryAnimationNotLoaded = 141,    // file path
  kEntryAnimationNotFound = 142,     // file path
  kEntryNothingToAnimate = 143,      // file path
  kEntryTextureRefused = 144,        // file path, mesh file name
  kEntryCacheSoup = 145,             //
  kEntryNameTwice = 149,             // name, container name
  kEntrySnapModeMissing = 151,       // tag name
  kEntrySnapModeNotZero = 152,       // tag name
  kEntryTypeNotTrackside = 153,      // "type", "trackside", tag name
  kEntryTypeMissing = 154,           // tag name, "type", "trackside"
  kEntryNeedsTag = 155,              // tag name, "collate-meshes"
  kEntryNotPositive = 156,           // tag name
  kEntryZero = 157,                  // tag name
  kEntryOutOfRange = 158,            // tag name, least, most
  kEntryOwnParent = 160,             //
  kEntryNotOwnParent = 161,          //
  kEntryNoSuchLight = 162,           // the number
  kEntryNoLights = 163,              //
  kEntryNotPaired = 164,             // two tag names
  kEntryNullKuid = 165,              // tag name
  kEntryKuidUnknown = 166,           // KUID
  kEntryKuidCategory = 167,          // tag name
  kEntryKuidNotInstalled = 168,      // KUID
  kEntryTextureTwice = 186,          // file path
  kEntryImageSizesDiffer = 189,      // file path
  kEntryImageNotPowerOfTwo = 190,    // file path
  kEntryImageUnreadable = 191,       // file path
};

}  // namespace QELLib
