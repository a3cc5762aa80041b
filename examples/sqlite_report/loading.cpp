#include <cstdint>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <iterator>

#include <sys/stat.h>

#include "steps.h"
#include "table_store.h"

namespace sqlite_report {
namespace {

constexpr std::size_t LARGE = 500 * 1000;

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

/// FNV-1a, the highest byte first.
vexa::CBinary Checksum(const std::string& text)
{
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    unsigned char bytes[sizeof sum];
    for (std::size_t i = 0; i < sizeof sum; ++i)
        bytes[i] = static_cast<unsigned char>(sum >> (8 * (sizeof sum - 1 - i)));
    return vexa::CBinary(bytes, sizeof bytes);
}

/// The records of a file: its only attribute.
vexa::CContainerConstRefrence RecordsOf(const vexa::CConstRefrence& file)
{
    return file.AsClass().Attribs().begin().Value().AsContainer();
}

LoadedFile Describe(const std::filesystem::path& path, const std::string& text, unsigned long records)
{
    LoadedFile loaded;
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) loaded.modified = vexa::CDateTime(status.st_mtime, 0);
    loaded.file = path.stem().string();
    loaded.bytes = text.size();
    loaded.records = static_cast<int>(records);
    if (records > 0) loaded.mean_record = static_cast<double>(text.size()) / static_cast<double>(records);
    loaded.is_large = text.size() >= LARGE;
    loaded.checksum = Checksum(text);
    return loaded;
}

bool LoadFile(Input& input, const std::filesystem::path& path, vexa::CRefrence target)
{
    std::string text;
    if (!ReadText(path, text)) return false;
    const int code = vexa::FromJson(target, text);
    if (code != 0) {
        std::cerr << path.string() << ": result " << code << ". " << vexa::JsonResultText(code) << '\n';
        return false;
    }
    input.files.push_back(Describe(path, text, RecordsOf(target).Count()));
    return true;
}

void NoteShares(std::vector<LoadedFile>& files)
{
    unsigned long total = 0;
    for (const LoadedFile& file : files)
        total += file.bytes;
    for (LoadedFile& file : files) {
        const unsigned long permille = total > 0 ? file.bytes * 1000 / total : 0;
        file.share = std::to_string(permille / 10) + '.' + std::to_string(permille % 10);
    }
}

/// Stores objects of one class, and says so.
bool Store(Database& database, const vexa::CContainerConstRefrence& objects)
{
    if (!StoreObjects(database, objects)) return Failed("storing", database);
    std::cout << std::left << std::setw(16) << TableNameOf(objects) << std::right << std::setw(6) << objects.Count()
              << " rows\n";
    return true;
}

} // namespace

bool LoadFiles(Input& input, const std::filesystem::path& directory)
{
    for (const auto& file : vexa::RefOf(input.catalog).AsClass().Attribs()) {
        // A walk gives read-only references. This one lies in an object that may be changed, and so may be written
        // through.
        const vexa::CRefrence target(file.Value().TypeInfor, file.Value().Address);
        if (!LoadFile(input, directory / (file.Name() + ".json"), target)) return false;
    }
    NoteShares(input.files);
    return true;
}

bool StoreRecords(Database& database, const Input& input)
{
    Heading("Storing every object in a table of its class");
    bool held = true;
    for (const auto& file : vexa::RefOf(input.catalog).AsClass().Attribs())
        held = Store(database, RecordsOf(file.Value())) && held;
    const vexa::CConstRefrence files = vexa::RefOf(input.files);
    held = Store(database, files.AsContainer()) && held;
    std::cout << TableDefinition(files.AsContainer()) << '\n';
    return Check("every object is stored", held);
}

} // namespace sqlite_report
