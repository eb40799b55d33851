#pragma once

#include <string>
#include <string_view>

namespace ventlock {

/// Names of resource files as they are registered: trimmed, with their extension added unless the name ends
/// in it, case ignored. An empty DLL or template name becomes the bare extension, an empty help file name
/// stays empty.
std::string DllName(std::string_view field);
std::string TemplateName(std::string_view field);
std::string HelpFileName(std::string_view field);

}  // namespace ventlock
