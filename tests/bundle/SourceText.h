#pragma once
// The project's own files, read by their path from its root.

#include "tests/support/FileText.h"

namespace standin
{
inline std::string SourceText(const std::string& path) { return FileText(VORTAN_SOURCE_FOLDER "/" + path); }
} // namespace standin
