#ifndef VEXA_EXAMPLE_CATALOG_FILES_H
#define VEXA_EXAMPLE_CATALOG_FILES_H

#include <filesystem>
#include <string>

#include "iso_codes.h"

/// \file
/// The files of a catalog. Nothing here knows any of the eight record classes: a reference brings its description
/// along.

namespace iso_codes {

/// A directory of its own below the system's temporary one; goes with all that it holds. Throws std::runtime_error when
/// it cannot be made.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// Takes \p text over as the whole content of a file.
/// \return false after a message on standard error; the file may then hold a part of it.
bool WriteText(const std::filesystem::path& path, const std::string& text);

/// Gives a whole file in \p text.
/// \return false after a message on standard error; \p text is then as it was.
bool ReadText(const std::filesystem::path& path, std::string& text);

/// Reads every file of a catalog from \p directory into \p catalog.
/// \return false after a message on standard error for the first file that fails; those before it have been read.
bool ReadCatalog(Catalog& catalog, const std::filesystem::path& directory);

/// Writes every file of a catalog into \p directory.
/// \return false after a message on standard error for the first file that fails.
bool WriteCatalog(const Catalog& catalog, const std::filesystem::path& directory);

/// The records of any IsoFile: its only attribute.
vexa::CContainerConstRefrence RecordsOf(const vexa::CConstRefrence& file);

} // namespace iso_codes

#endif
