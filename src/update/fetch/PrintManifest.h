#pragma once

#include "update/fetch/ManifestDownload.h"

namespace hmatnik {

/// Fetches the manifest, writes its bytes to standard output and ends the process: status 0 if all
/// went well, else 1 and nothing written. Needs a QCoreApplication.
[[noreturn]] void printManifest(const ManifestDownload::Options &options);

} // namespace hmatnik
