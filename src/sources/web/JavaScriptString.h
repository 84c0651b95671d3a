// Texts as they are written into scripts within web pages.
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// The text as a string literal of JSON and of JavaScript, in ASCII, that cannot end the script
/// element around it either. `null` when there is no text, or when it is no valid UTF-16.
QString javaScriptString(const std::optional<QString> &text);

} // namespace zeph
