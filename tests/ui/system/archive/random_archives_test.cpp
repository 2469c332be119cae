#include "base/caseless_tree.h"
#include "base/files.h"
#include "tests/support/file_system.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"
#include "ui/system/archive/zip_extractor.h"
#include "ui/system/archive/zip_reader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Result = ui::system::ZipExtractor::Result;
using Files = std::map<std::string, std::string>; // contents by path; folders end in "/"

class RandomArchives : public testing::Test {
protected:
    int upTo(int most) { return std::uniform_int_distribution(0, most)(m_random); }

    // Few names, so that many meet, in other letter cases too, and files meet folders.
    std::string name() {
        static const char* const parts[] = {"a",     "A",    "pics", "Pics", "b.jpg",
                                            "B.jpg", "deep", "c",    "..",   "d"};
        std::string path;
        for (int depth = upTo(2); depth >= 0; --depth)
            path.append(path.empty() ? "" : "/").append(parts[upTo(9)]);
        return upTo(9) == 0 ? path + "/" : path;
    }

    // Some are longer than the pieces in which they are read.
    std::string contents() {
        return std::string(upTo(30) == 0 ? 1'500'000 : static_cast<std::size_t>(upTo(3) * upTo(2000)), 'x');
    }

    support::ZipBuilder archive() {
        support::ZipBuilder made;
        std::set<std::string> names;
        for (int entries = upTo(12); entries >= 0; --entries)
            if (const auto path = name(); !names.insert(path).second)
                continue;
            else if (upTo(50) == 0)
                made.addEncrypted(path, "secret");
            else
                made.add(path, path.ends_with('/') ? "" : contents());
        return made;
    }

    void fill(const fs::path& target) {
        fs::create_directories(target);
        std::error_code inTheWay;
        for (int files = upTo(6); files > 0; --files) {
            const auto place = target / fs::path(name()).relative_path().lexically_normal().relative_path();
            if (place.lexically_relative(target).string().starts_with(".."))
                continue;
            fs::create_directories(place.parent_path(), inTheWay);
            std::ofstream(place, std::ios::binary) << contents();
        }
    }

    static Files filesIn(const fs::path& target) {
        Files found;
        for (const auto& entry : fs::recursive_directory_iterator(target))
            found[entry.path().lexically_relative(target).generic_string() +
                  (entry.is_directory() ? "/" : "")] =
                entry.is_directory() ? "" : base::readFile(entry.path()).value();
        return found;
    }

    /// One entry after the other, file by file and without a thought of speed or failure.
    static std::optional<Files> plainly(const fs::path& archive, const fs::path& target) {
        const ui::system::ZipReader reader(archive);
        if (!reader.isOpen() || !reader.isSound(1000))
            return std::nullopt;
        auto found = filesIn(target);
        base::CaselessTree places(target);
        for (const auto& entry : reader.entries("*")) {
            const auto place = places.place(entry.where.path).lexically_relative(target);
            const auto takes = [&](const std::string& path) { return found.contains(path); };
            for (auto parent = place.parent_path(); !parent.empty(); parent = parent.parent_path()) {
                if (takes(parent.generic_string()))
                    return std::nullopt;
                found[parent.generic_string() + "/"];
            }
            if (takes(place.generic_string() + (entry.where.isFolder ? "" : "/")))
                return std::nullopt;
            auto& contents = found[place.generic_string() + (entry.where.isFolder ? "/" : "")];
            contents.clear();
            auto opened = reader.open(entry);
            std::vector<std::byte> piece(1000);
            auto state = ui::system::ZipEntryReader::State::more;
            while (!entry.where.isFolder && state == ui::system::ZipEntryReader::State::more) {
                std::size_t count = 0;
                state = opened.read(piece, count);
                contents.append(reinterpret_cast<const char*>(piece.data()), count);
            }
            if (state == ui::system::ZipEntryReader::State::damaged)
                return std::nullopt;
        }
        return found;
    }

    fs::path folder = support::testFolder();
    fs::path zip = folder / "ACME.zip";

private:
    std::mt19937 m_random{16};
};

TEST_F(RandomArchives, AreUnpackedByAnyNumberOfWorkersAsOneEntryAfterTheOther) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    int extracted = 0;
    for (int round = 0; round < 120; ++round) {
        const auto target = folder / std::to_string(round);
        archive().writeTo(zip);
        fill(target);
        const auto before = filesIn(target);
        const auto expected = plainly(zip, target);
        const ui::system::ZipExtractor extractor({}, 1 + static_cast<unsigned>(round) % 3);
        const auto result = extractor.extract(zip, "*", target);
        EXPECT_EQ(filesIn(target), expected.value_or(before)) << round;
        EXPECT_EQ(result == Result::extracted || result == Result::nothingMatched, expected.has_value())
            << round;
        extracted += result == Result::extracted;
    }
    EXPECT_GT(extracted, 20) << "else this looks at nothing but failures";
}

// What is left out is what the folder would have anyway.
TEST_F(RandomArchives, WithoutWhatIsInstalledAlreadyMakeTheSameCatalogue) {
    int leftOut = 0;
    for (int round = 0; round < 60; ++round) {
        const auto number = std::to_string(round);
        archive().writeTo(zip);
        const ui::system::ZipExtractor extractor({}, 2);
        const auto installed = folder / ("installed" + number);
        const auto whole = folder / ("whole" + number);
        const auto changed = folder / ("changed" + number);
        for (const auto& made : {installed, whole, changed})
            fs::create_directories(made);
        if (extractor.extract(zip, "*", whole) != Result::extracted)
            continue;
        const auto expected = filesIn(whole);
        for (const auto& [path, contents] : expected)
            if (const auto place = installed / path; path.ends_with('/'))
                fs::create_directories(place);
            else if (const int kind = upTo(3); kind > 0)
                std::ofstream(place) << (kind > 1 || contents.empty() ? contents : "y" + contents.substr(1));
        ASSERT_EQ(extractor.extractChanged(zip, changed, installed), Result::extracted) << round;
        const auto come = filesIn(changed);
        auto found = filesIn(installed);
        for (const auto& [path, contents] : come)
            found[path] = contents;
        EXPECT_EQ(found, expected) << round;
        leftOut += come.size() < expected.size();
    }
    EXPECT_GT(leftOut, 10);
}

TEST_F(RandomArchives, ThroughALinkNothingCountsAsInstalled) {
    if (!support::hasSymbolicLinks())
        GTEST_SKIP() << "no symbolic links here";
    support::ZipBuilder().add("pics/a.jpg", "a").add("b.jpg", "b").add("C.jpg", "c").writeTo(zip);
    const auto installed = folder / "installed";
    fs::create_directories(folder / "elsewhere");
    fs::create_directories(installed);
    fs::create_directories(folder / "changed");
    base::replaceFile(folder / "elsewhere" / "a.jpg", "a");
    base::replaceFile(folder / "elsewhere" / "b.jpg", "b");
    base::replaceFile(installed / "c.jpg", "c");
    fs::create_directory_symlink(folder / "elsewhere", installed / "pics");
    fs::create_symlink(folder / "elsewhere" / "b.jpg", installed / "b.jpg");
    ASSERT_EQ(ui::system::ZipExtractor().extractChanged(zip, folder / "changed", installed),
              Result::extracted);
    EXPECT_EQ(filesIn(folder / "changed"), (Files{{"b.jpg", "b"}, {"pics/", ""}, {"pics/a.jpg", "a"}}));
}

}
