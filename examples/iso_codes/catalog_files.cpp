#include "catalog_files.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace iso_codes {
namespace {

std::filesystem::path FileOf(const std::filesystem::path& directory, const std::string& name)
{
    return directory / (name + ".json");
}

bool ReadFile(const std::filesystem::path& path, vexa::CRefrence target)
{
    std::string text;
    if (!ReadText(path, text)) return false;
    const int code = vexa::FromJson(target, text);
    if (code != 0) std::cerr << path.string() << ": result " << code << ". " << vexa::JsonResultText(code) << '\n';
    return code == 0;
}

bool WriteFile(const std::filesystem::path& path, const vexa::CConstRefrence& source)
{
    std::string text;
    const int code = vexa::ToJson(text, source);
    if (code != 0) std::cerr << path.string() << ": result " << code << ". " << vexa::JsonResultText(code) << '\n';
    return code == 0 && WriteText(path, text);
}

} // namespace

TemporaryDirectory::TemporaryDirectory()
{
    std::string name = (std::filesystem::temp_directory_path() / "iso_codes_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("Cannot make the directory " + name);
    m_path = name;
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

bool WriteText(const std::filesystem::path& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close(); // what was only buffered can still fail
    if (!file) std::cerr << "Cannot write " << path.string() << ".\n";
    return file.good();
}

bool ReadText(const std::filesystem::path& path, std::string& text)
{
    std::error_code ignored;
    std::ifstream file(path, std::ios::binary);
    // A directory opens like a file, and only fails when it is read.
    if (!file || !std::filesystem::is_regular_file(path, ignored)) {
        std::cerr << "Cannot read " << path.string() << ".\n"
                  << "The file belongs to Debian's package iso-codes: install that, or name a directory that holds the "
                     "files.\n";
        return false;
    }
    text.assign(std::istreambuf_iterator<char>(file), {});
    return true;
}

bool ReadCatalog(Catalog& catalog, const std::filesystem::path& directory)
{
    for (const auto& file : vexa::RefOf(catalog).AsClass().Attribs()) {
        // A walk gives read-only references. This one lies in an object that may be changed, and so may be written
        // through.
        const vexa::CRefrence target(file.Value().TypeInfor, file.Value().Address);
        if (!ReadFile(FileOf(directory, file.Name()), target)) return false;
    }
    return true;
}

bool WriteCatalog(const Catalog& catalog, const std::filesystem::path& directory)
{
    for (const auto& file : vexa::RefOf(catalog).AsClass().Attribs()) {
        if (!WriteFile(FileOf(directory, file.Name()), file.Value())) return false;
    }
    return true;
}

vexa::CContainerConstRefrence RecordsOf(const vexa::CConstRefrence& file)
{
    return file.AsClass().Attribs().begin().Value().AsContainer();
}

} // namespace iso_codes
