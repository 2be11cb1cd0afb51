// The controls of a page as source code, for a form of one's own.
#pragma once

#include <string>

#include "scene.h"

namespace obk::gallery {

enum class CodeLanguage { classicBasic, objectPascal, csharp };

// Makes each control, places it in pixels and sets what differs from a new one's properties; a grid gets its
// columns and rows. Pictures and fonts are left out: code cannot write them down.
std::wstring codeFor(const Scene& scene, const container::ServerContext& server, CodeLanguage language);

}  // namespace obk::gallery
