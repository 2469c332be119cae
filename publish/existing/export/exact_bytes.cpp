#include "publish/existing/export/exact_bytes.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/mapped_file.h"
#include "publish/existing/catalog_files.h"
#include "publish/existing/export/patch_file.h"

#include <algorithm>
#include <map>
#include <optional>

namespace publish {
namespace fs = std::filesystem;

namespace {

using Weight = Complaint::Weight;

constexpr std::string_view patchEnding = ".patch";

/// How many files name each other's records by number: all but the parameters.
constexpr std::size_t numberedFiles = dataFileNames.size() - 1;

/// The bytes of a record that say where in another file, or in its own, something stands.
struct Numbers {
    std::size_t recordLength;
    std::array<std::pair<std::size_t, std::size_t>, 2> places; // from, to
};

constexpr Numbers productNumbers{
    catalog::ProductRecord::length,
    {{{catalog::ProductRecord::groupOffset, catalog::ProductRecord::textField.offset},
      {catalog::ProductRecord::memoPositionOffset, catalog::ProductRecord::length}}}};
constexpr Numbers groupNumbers{catalog::GroupRecord::length,
                               {{{catalog::GroupRecord::headerRecordOffset, catalog::GroupRecord::length}}}};

std::string_view textOf(const base::MappedFile& file) {
    return {reinterpret_cast<const char*>(file.bytes().data()), file.bytes().size()};
}

base::MappedFile mapped(const fs::path& path) {
    try {
        return base::MappedFile(path);
    } catch (const base::MissingFile&) {
        throw base::FileError("Cannot read " + base::textOf(path) +
                              "\nPlease check that it is there and that you may read it");
    }
}

fs::path patchPath(const fs::path& sourceFolder, std::string_view name) {
    return sourceFolder / exactFolder / (std::string(name) + std::string(patchEnding));
}

bool isNumber(const Numbers& numbers, std::size_t offset) {
    const auto inRecord = offset % numbers.recordLength;
    return std::any_of(numbers.places.begin(), numbers.places.end(),
                       [&](const auto& place) { return inRecord >= place.first && inRecord < place.second; });
}

// Whether the patch changes numbers, or how many records there are.
bool changesNumbers(const Patch& patch, std::string_view built, const Numbers& numbers) {
    if (patch.built.size / numbers.recordLength != patch.original.size / numbers.recordLength)
        return true;
    for (const auto& range : patch.ranges) {
        const auto replaced = replacedBy(range, built);
        for (std::size_t i = 0; i < replaced.size(); ++i)
            if (replaced[i] != range.bytes[i] && isNumber(numbers, range.offset + i))
                return true;
    }
    return false;
}

/// A field of PrdPrm.dat as a whole, so that a change of one does not spoil another.
std::size_t endOfField(std::size_t offset) {
    using Header = catalog::ParameterHeader;
    constexpr std::array<std::size_t, 12> headerFields{4, 13, 22, 23, 24, 25, 26, 27, 28, 29, 34, 35};
    if (offset >= Header::length)
        return (offset / Header::length + 1) * Header::length;
    const auto* next = std::upper_bound(headerFields.begin(), headerFields.end(), offset);
    return next == headerFields.end() ? (offset < 36 ? 36 : Header::length) : *next;
}

Patch parametersDifference(std::string_view built, std::string_view original) {
    auto patch = differenceOf(built, original);
    patch.ranges.clear();
    for (std::size_t start = 0; start < original.size();) {
        const auto end =
            start < built.size() ? std::min(endOfField(start), original.size()) : original.size();
        Patch::Range range{.offset = start, .bytes = original.substr(start, end - start)};
        const auto replaced = replacedBy(range, built);
        range.replacedSum = checkSum(replaced);
        if (replaced != range.bytes)
            patch.ranges.push_back(range);
        start = end;
    }
    return patch;
}

/// One data file and what is to be done with it.
struct Work {
    std::string_view name;
    fs::path dataFile;
    base::MappedFile patchFile;
    Patch patch;
    bool fits = false;
};

class Patcher {
public:
    Patcher(const fs::path& sourceFolder, const fs::path& dataFolder, Complaints& complaints)
        : m_source(sourceFolder), m_data(dataFolder), m_complaints(complaints) {}

    void run() {
        for (const auto name : dataFileNames)
            read(name);
        const auto fitting = std::count_if(m_work.begin(), m_work.end(),
                                           [](const Work& work) { return work.fits && work.patch.together; });
        const bool allFit = fitting == numberedFiles;
        for (const auto& work : m_work)
            if (work.name == catalog::parametersFile && !work.fits)
                patchFields(work);
            else if (work.fits && (allFit || !work.patch.together))
                patchWhole(work);
            else
                sayChanged(work);
    }

private:
    void read(std::string_view name) {
        const auto path =
            base::findFile(m_source / exactFolder, std::string(name) + std::string(patchEnding));
        if (!path)
            return;
        auto file = mapped(*path);
        const auto patch = parsePatch(textOf(file));
        if (!patch)
            return sayDamaged(name);
        m_work.push_back({name, m_data / name, std::move(file), *patch});
        m_work.back().fits = wholeOf(textOf(mapped(m_work.back().dataFile))) == patch->built;
    }

    void patchWhole(const Work& work) {
        if (work.patch.built == work.patch.original)
            return;
        putRanges(work.dataFile, work.patch, work.patch.ranges);
        if (wholeOf(textOf(mapped(work.dataFile))) != work.patch.original)
            sayDamaged(work.name);
    }

    // Parameters change with every version, so each field goes by itself.
    void patchFields(const Work& work) {
        std::vector<Patch::Range> ranges;
        {
            const auto built = mapped(work.dataFile);
            if (built.bytes().size() != work.patch.built.size)
                return sayChanged(work);
            for (const auto& range : work.patch.ranges)
                if (checkSum(replacedBy(range, textOf(built))) == range.replacedSum)
                    ranges.push_back(range);
        }
        putRanges(work.dataFile, work.patch, ranges);
        if (ranges.size() < work.patch.ranges.size())
            sayChanged(work);
    }

    [[nodiscard]] static Place placeOf(std::string_view name) {
        return {.file = std::string(exactFolder) + "/" + std::string(name) + std::string(patchEnding)};
    }

    void sayDamaged(std::string_view name) {
        m_complaints.push_back({Weight::error, placeOf(name),
                                "the file is damaged; take it from the export again, or delete it to do "
                                "without what only the old bytes of " +
                                    std::string(name) + " said",
                                "exact-damaged"});
    }

    void sayChanged(const Work& work) {
        if (work.patch.together && m_saidTogether)
            return;
        m_saidTogether |= work.patch.together;
        const auto what = work.patch.together ? "products or groups were" : std::string(work.name) + " was";
        m_complaints.push_back(
            {Weight::warning, placeOf(work.name),
             what + " changed since the export, so the catalogue is made of the tables alone: what only the "
                    "old bytes said, which the export told, is gone. Delete this file if that is all right",
             "exact-left-out"});
    }

    fs::path m_source;
    fs::path m_data;
    Complaints& m_complaints;
    std::vector<Work> m_work;
    bool m_saidTogether = false;
};

}

void keepExactBytes(const fs::path& catalogFolder, const fs::path& builtFolder,
                    const fs::path& sourceFolder) {
    std::error_code error;
    std::map<std::string_view, Patch> patches;
    std::vector<base::MappedFile> files; // as long as the patches
    bool together = false;
    for (const auto name : dataFileNames) {
        const auto& original = files.emplace_back(mapped(base::filePath(catalogFolder, name)));
        const auto originalText = textOf(original);
        const auto built = mapped(builtFolder / name);
        auto& patch = patches[name];
        patch = name == catalog::parametersFile ? parametersDifference(textOf(built), originalText)
                                                : differenceOf(textOf(built), originalText);
        together |= name == catalog::productsFile && changesNumbers(patch, textOf(built), productNumbers);
        together |= name == catalog::groupsFile && changesNumbers(patch, textOf(built), groupNumbers);
    }
    for (auto& [name, patch] : patches) {
        patch.together = together && name != catalog::parametersFile;
        fs::remove(patchPath(sourceFolder, name), error);
        if (patch.built == patch.original && !patch.together)
            continue;
        fs::create_directories(sourceFolder / exactFolder, error);
        writePatch(patchPath(sourceFolder, name), patch);
    }
}

void applyExactBytes(const fs::path& sourceFolder, const fs::path& dataFolder, Complaints& complaints) {
    Patcher(sourceFolder, dataFolder, complaints).run();
}

}
