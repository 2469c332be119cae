#include "base/errors.h"
#include "base/files.h"
#include "publish/zips/zip_writer.h"
#include "tests/faults/file_faults.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using faults::Fault;

class PublishedZip : public testing::Test {
protected:
    PublishedZip() {
        fs::create_directory(zip.parent_path());
        base::replaceFile(noise, std::string(600'000, 'n'));
        write();
        m_new = *base::readFile(zip);
    }

    void write() const {
        publish::ZipWriter writer(zip, 2);
        writer.addText("a.txt", "some text");
        writer.addFile("noise.jpg", noise);
        writer.finish();
    }

    /// Whether it says that it has failed, with the fault at this call.
    bool fails(Fault fault, int at) const {
        base::replaceFile(zip, m_old);
        faults::begin(fault, at);
        try {
            write();
            faults::end();
            return false;
        } catch (const base::FileError&) {
            faults::end();
            return true;
        }
    }

    bool isKilledAt(int call) const {
        base::replaceFile(zip, m_old);
        const auto child = fork();
        if (child == 0) {
            faults::begin(Fault::killed, call);
            write();
            _exit(0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFSIGNALED(status);
    }

    void expectNextRunCleansUp() const {
        write();
        EXPECT_EQ(base::readFile(zip), m_new);
        EXPECT_EQ(std::distance(fs::directory_iterator(zip.parent_path()), {}), 1);
    }

    fs::path folder = support::testFolder();
    fs::path zip = folder / "out" / "ACME.zip";
    fs::path noise = folder / "noise.jpg";

    const std::string m_old = "old";
    std::string m_new;
};

TEST_F(PublishedZip, IsOldOrNewAndItIsSaidWhichWhenTheDiskFails) {
    for (const auto fault : {Fault::once, Fault::diskFull, Fault::offline})
        for (int at = 1; !HasFailure(); ++at) {
            const bool hasFailed = fails(fault, at);
            if (!faults::hasStruck())
                break;
            EXPECT_EQ(base::readFile(zip), hasFailed ? m_old : m_new) << "at call " << at;
            expectNextRunCleansUp();
        }
}

TEST_F(PublishedZip, IsOldOrNewWhenItsWriterIsKilled) {
    for (int at = 1; isKilledAt(at) && !HasFailure(); ++at) {
        const auto found = base::readFile(zip);
        EXPECT_TRUE(found == m_old || found == m_new) << "at call " << at;
        expectNextRunCleansUp();
    }
}

}
