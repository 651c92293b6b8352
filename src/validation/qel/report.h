#pragma once

#include <string>

#include "engine/format.h"
#include "validation/qel/error_handler.h"
#include "validation/qel/message_entries.h"

namespace QELLib {

// The text of an entry of the message table; empty for one that the table lacks.
std::string_view MessageText(MessageEntry entry);

// Reports on the asset, a container or a tag, in the words of the message table.

template <typename... Args>
void ReportError(MessageEntry entry, const Args&... args) {
  ErrorHandler* const handler = ErrorHandler::Get();
  if (handler != nullptr) handler->Error(Nox::FormatText(MessageText(entry), args...));
}

template <typename... Args>
void ReportWarning(MessageEntry entry, const Args&... args) {
  ErrorHandler* const handler = ErrorHandler::Get();
  if (handler != nullptr) handler->Warning(Nox::FormatText(MessageText(entry), args...));
}

template <typename... Args>
void ReportError(const Container& container, MessageEntry entry, const Args&... args) {
  ErrorHandler* const handler = ErrorHandler::Get();
  if (handler != nullptr) handler->ErrorOnContainer(Nox::FormatText(MessageText(entry), args...), &container);
}

template <typename... Args>
void ReportWarning(const Container& container, MessageEntry entry, const Args&... args) {
  ErrorHandler* const handler = ErrorHandler::Get();
  if (handler != nullptr)
    handler->WarningOnContainer(Nox::FormatText(MessageText(entry), args...), &container);
}

template <typename... Args>
void ReportError(const Tag& tag, MessageEntry entry, const Args&... args) {
  ErrorHandler* const handler = ErrorHandler::Get();
  if (handler != nullptr) handler->ErrorOnTag(Nox::FormatText(MessageText(entry), args...), &tag);
}

template <typename... Args>
void ReportWarning(const Tag& tag, MessageEntry entry, const Args&... args) {
  ErrorHandler* const handler = ErrorHandler::Get();
  if (handler != nullptr) handler->WarningOnTag(Nox::FormatText(MessageText(entry), args...), &tag);
}

}  // namespace QELLib
