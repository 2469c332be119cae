#include "base/errors.h"
#include "base/files.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"
#include "ui/system/archive/background_archive.h"
#include "ui/system/archive/zip_delivery.h"
#include "ui/system/background_work.h"
#include "ui/system/later_work.h"

#include <QCoreApplication>
#include <QTimer>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Result = platform::Archive::Result;

class BackgroundArchive : public testing::Test {
protected:
    BackgroundArchive() {
        fs::create_directory(target);
        support::ZipBuilder().add("a", std::string(5'000'000, 'a')).add("b", "bb").writeTo(zip);
    }

    fs::path folder = support::testFolder();
    fs::path zip = folder / "ACME.zip";
    fs::path target = folder / "target";
    ui::system::BackgroundArchive archive;
};

TEST_F(BackgroundArchive, TellsItsProgressToTheThreadThatWaits) {
    const auto waiting = std::this_thread::get_id();
    std::vector<quint64> steps;
    QObject receiver;
    QObject::connect(&archive, &ui::system::BackgroundArchive::progress, &receiver, [&](quint64 done) {
        EXPECT_EQ(std::this_thread::get_id(), waiting);
        steps.push_back(done);
    });
    EXPECT_EQ(archive.extract(zip, "*", target), Result::extracted);
    QCoreApplication::processEvents();
    EXPECT_FALSE(archive.busy());
    EXPECT_EQ(fs::file_size(target / "a"), 5'000'000U);
    ASSERT_FALSE(steps.empty());
    EXPECT_EQ(steps.back(), 5'000'002U);
}

// The unpacking thread waits at its first step until the other one has cancelled.
TEST_F(BackgroundArchive, EndsWhenItIsCancelledMeanwhileAndLeavesNothing) {
    QObject receiver;
    QObject::connect(
        &archive, &ui::system::BackgroundArchive::progress, &archive,
        [&] {
            QMetaObject::invokeMethod(
                &receiver, [&] { archive.cancel(); }, Qt::BlockingQueuedConnection);
        },
        Qt::DirectConnection);
    EXPECT_EQ(archive.extract(zip, "*", target), Result::cancelled);
    EXPECT_TRUE(fs::is_empty(target));
    EXPECT_EQ(archive.extract(zip, "*", target), Result::cancelled);
}

TEST_F(BackgroundArchive, TwoUnpackingIntoFoldersOfTheirOwnDoNotDisturbEachOther) {
    const std::array targets{folder / "one", folder / "two"};
    std::array<Result, 2> results{};
    std::array<std::thread, 2> threads;
    for (std::size_t i = 0; i < threads.size(); ++i) {
        fs::create_directory(targets.at(i));
        threads.at(i) = std::thread(
            [&, i] { results.at(i) = ui::system::ZipExtractor().extract(zip, "*", targets.at(i)); });
    }
    for (auto& thread : threads)
        thread.join();
    for (std::size_t i = 0; i < threads.size(); ++i) {
        EXPECT_EQ(results.at(i), Result::extracted);
        EXPECT_EQ(base::readFile(targets.at(i) / "b"), "bb");
    }
}

// Stopped, it is begun again; at its end, it is over.
TEST(LaterWork, IsDoneInPiecesUntilItHasComeToItsEnd) {
    std::atomic<int> begun = 0;
    std::atomic<bool> isToEnd = false;
    ui::system::LaterWork later;
    later.start();
    later.set([&](const std::stop_token& stop) {
        ++begun;
        while (!stop.stop_requested() && !isToEnd)
            std::this_thread::yield();
    });
    EXPECT_EQ(begun, 0);
    for (const int times : {1, 2}) {
        later.start();
        while (begun < times)
            std::this_thread::yield();
        if (times == 1)
            later.stop();
    }
    later.start();
    isToEnd = true;
    EXPECT_EQ(begun, 2);
}

TEST_F(BackgroundArchive, DeliversACopyWhileEventsAreHandled) {
    bool handled = false;
    QTimer::singleShot(0, &archive, [&] { handled = true; });
    EXPECT_EQ(ui::system::deliverZip(zip, target, "Work.tmp"), target / "ACME.zip");
    EXPECT_EQ(base::readFile(target / "ACME.zip"), base::readFile(zip));
    EXPECT_TRUE(handled);
}

TEST_F(BackgroundArchive, WhatTheWorkThrowsIsThrownWhereItWasWaitedFor) {
    EXPECT_THROW(ui::system::deliverZip(zip, folder / "none", "Work.tmp"), base::FileError);
    EXPECT_THROW(ui::system::runInBackground([] { throw base::Quit(); }), base::Quit);
}

}

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
