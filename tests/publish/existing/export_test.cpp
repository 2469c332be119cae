#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "publish/existing/exact_bytes.h"
#include "publish/existing/export.h"
#include "publish/existing/known_complaints.h"
#include "publish/existing/plain_build.h"
#include "tests/publish/existing/random_catalog.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

namespace fs = std::filesystem;

constexpr std::array dataFiles{catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                               catalog::indexFile, catalog::memosFile};

/// What a build does with a source folder.
publish::Complaints build(const fs::path& source, const fs::path& data) {
    publish::Complaints complaints;
    publish::buildPlainly(source, data, complaints);
    publish::applyExactBytes(source, data, complaints);
    publish::demoteKnown(source, complaints);
    return complaints;
}

class Export : public testing::Test {
protected:
    publish::Complaints exported() {
        fs::remove_all(source);
        return publish::exportCatalog(catalog, {"ACME", "Acme Ltd"}, source);
    }

    void expectSameBytes(const fs::path& one, const fs::path& other) {
        for (const auto name : dataFiles)
            EXPECT_TRUE(base::readFile(base::filePath(one, name)) ==
                        base::readFile(base::filePath(other, name)))
                << name;
    }

    void expectRoundTrip() {
        static_cast<void>(exported());
        for (const auto& complaint : build(source, data))
            EXPECT_EQ(complaint.weight, publish::Complaint::Weight::warning) << textOf(complaint);
        expectSameBytes(catalog, data);
    }

    fs::path folder = support::testFolder();
    fs::path catalog = folder / "ACME";
    fs::path source = folder / "source";
    fs::path data = folder / "data";
};

int seeds() {
    const char* wanted = std::getenv("TAVORINE_EXPORT_SEEDS");
    return wanted != nullptr ? std::atoi(wanted) : 40;
}

TEST_F(Export, AnyCatalogueComesBackToTheByte) {
    for (unsigned seed = 1; seed <= static_cast<unsigned>(seeds()) && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        support::Random random(seed);
        support::randomCatalog(random).writeTo(catalog);
        expectRoundTrip();
        support::damage(catalog, random);
        expectRoundTrip();
    }
}

}
