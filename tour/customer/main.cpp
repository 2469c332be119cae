// A customer at the real windows for as long as you like:
//     endurance [--minutes 60] [--seed 1] FOLDER
// makes a program folder in FOLDER and prints the memory of all processes once a minute. At the end it fails
// when the program ended or stood still for longer than a second, when an order did not add up, or when the
// memory had grown by more than 5 % since the tenth minute.
#include "tour/customer/customer.h"
#include "tour/customer/heartbeat.h"
#include "tour/customer/process_memory.h"
#include "tour/program_folder.h"
#include "ui/qt/program.h"
#include "ui/system/browser_start.h"
#include "ui/system/file_instance_lock.h"
#include "ui/system/freed_memory.h"
#include "ui/system/primary_screen.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QSettings>

#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <numeric>
#include <vector>

namespace {
namespace fs = std::filesystem;

struct Arguments {
    std::size_t minutes;
    std::uint32_t seed;
    fs::path folder;
};

Arguments readArguments() {
    QCommandLineParser parser;
    const QCommandLineOption length("minutes", "How long it goes on.", "minutes", "60");
    const QCommandLineOption seed("seed", "Another one gives another customer.", "number", "1");
    parser.addOptions({length, seed});
    parser.addHelpOption();
    parser.addPositionalArgument("FOLDER", "Where the program folder goes.");
    parser.process(*QApplication::instance());
    if (parser.positionalArguments().size() != 1)
        parser.showHelp(2);
    return {parser.value(length).toULongLong(), parser.value(seed).toUInt(),
            fs::absolute(parser.positionalArguments().front().toStdString())};
}

// Nothing of the system is to be started: mails go nowhere, addresses are not opened.
class Elsewhere final : public QObject {
    Q_OBJECT

public:
    explicit Elsewhere(const fs::path& folder) {
        const auto command = folder / "bin" / "sendmail";
        fs::create_directories(command.parent_path());
        std::ofstream(command) << "#!/bin/sh\ncat >/dev/null\n";
        fs::permissions(command, fs::perms::owner_all);
        qputenv("PATH", QByteArray::fromStdString((folder / "bin").string()) + ":" + qgetenv("PATH"));
        for (const char* scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }

public slots:

    void open(const QUrl&) {}

private:
    static constexpr std::array<const char*, 3> schemes{"http", "https", "mailto"};
};

/// What pages take of the memory comes and goes within seconds, so it is looked at six times a minute, and
/// the averages of five minutes are compared: those up to the tenth minute and the last ones.
class Ledger {
public:
    static constexpr std::chrono::seconds interval{10};

    void look() {
        m_kinds = tour::memoryByKind();
        const auto total = tour::total(m_kinds);
        m_all.push_back(static_cast<double>(total.all) / 1024);
        m_withoutFiles.push_back(static_cast<double>(total.withoutFiles) / 1024);
    }

    [[nodiscard]] bool minuteIsFull() const { return m_all.size() % looksAMinute == 0; }

    void print(std::size_t actions) const {
        std::printf("minute %zu: %zu actions, %.0f MB, without files %.0f MB, at last (", minute(), actions,
                    averageUntil(m_all, minute(), 1), averageUntil(m_withoutFiles, minute(), 1));
        for (const auto& [kind, memory] : m_kinds)
            std::printf(" %s %zu", kind.c_str(), memory.withoutFiles / 1024);
        std::printf(" )\n");
        static_cast<void>(std::fflush(stdout));
    }

    [[nodiscard]] std::size_t minute() const { return m_all.size() / looksAMinute; }

    /// 0 in the first ten minutes.
    [[nodiscard]] double growth() const { return growthOf(m_all); }

    [[nodiscard]] double growthWithoutFiles() const { return growthOf(m_withoutFiles); }

private:
    static constexpr std::size_t warmUp = 10;
    static constexpr std::size_t looksAMinute = std::chrono::minutes(1) / interval;

    [[nodiscard]] double growthOf(const std::vector<double>& looks) const {
        return minute() <= warmUp ? 0 : averageUntil(looks, minute(), 5) / averageUntil(looks, warmUp, 5) - 1;
    }

    [[nodiscard]] static double averageUntil(const std::vector<double>& looks, std::size_t end,
                                             std::size_t minutes) {
        const auto count = static_cast<std::ptrdiff_t>(minutes * looksAMinute);
        const auto last = looks.begin() + static_cast<std::ptrdiff_t>(end * looksAMinute);
        return std::accumulate(last - count, last, 0.0) / static_cast<double>(count);
    }

    std::map<std::string, tour::Memory> m_kinds; // at the last look
    std::vector<double> m_all;                   // in MB, one a look
    std::vector<double> m_withoutFiles;
};

bool endure(const Arguments& wanted) {
    constexpr std::chrono::milliseconds longestPause(1000);
    constexpr double mostGrowth = 0.05;

    tour::Heartbeat heartbeat(longestPause);
    tour::Customer customer(wanted.seed, wanted.folder, heartbeat);
    Ledger ledger;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] {
        ledger.look();
        if (ledger.minuteIsFull())
            ledger.print(customer.actions());
        if (ledger.minute() >= wanted.minutes) {
            customer.stop();
            QApplication::exit(42);
        }
    });
    clock.start(Ledger::interval);
    customer.start();
    const bool lasted = QApplication::exec() == 42;
    for (const auto& pause : heartbeat.pauses())
        std::printf("stood still for %lld ms while %s\n", static_cast<long long>(pause.length.count()),
                    pause.doing.c_str());
    std::printf("%s after %zu minutes and %zu actions; %zu faults, longest pause %lld ms, memory %+.1f %% "
                "(without files %+.1f %%)\n",
                lasted ? "over" : "THE PROGRAM ENDED", ledger.minute(), customer.actions(), customer.faults(),
                static_cast<long long>(heartbeat.longest().count()), ledger.growth() * 100,
                ledger.growthWithoutFiles() * 100);
    return lasted && customer.faults() == 0 && heartbeat.pauses().empty() && ledger.growth() <= mostGrowth;
}

}

int main(int argc, char* argv[]) {
    ui::system::keepToFewHeaps();
    ui::system::returnFreedMemory();
    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine endurance");
    QApplication::setQuitOnLastWindowClosed(false);
    const auto wanted = readArguments();
    fs::remove_all(wanted.folder);
    tour::prepareProgramFolder(wanted.folder / "program");
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdU16String((wanted.folder / "config").u16string()));
    Elsewhere elsewhere(wanted.folder);
    tour::ProgramFile programFile(wanted.folder / "program" / "Tavorine");
    ui::system::PrimaryScreen screen;
    ui::system::FileInstanceLock instanceLock;
    ui::qt::Program program({programFile, screen, instanceLock, wanted.folder / "own"});
    program.start();
    return endure(wanted) ? 0 : 1;
}

#include "main.moc"
