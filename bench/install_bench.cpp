// How long a catalogue of 5,000 pictures takes to come in, against bsdtar that unpacks the same zip, into a
// new folder or over the files of the version before: on one core and on two. And how long the start-up
// window is busy without a look at its events meanwhile. Each run is a process of its own, in a folder of its
// own.
#include "app/catalog_zips.h"
#include "bench/busy_watch.h"
#include "bench/picture_zip.h"
#include "tests/app/quiet_window.h"
#include "ui/qt/program.h"
#include "ui/system/archive/background_archive.h"
#include "ui/system/background_work.h"
#include "ui/system/browser_start.h"
#include "ui/system/file_instance_lock.h"
#include "ui/system/primary_screen.h"

#include <QApplication>
#include <QCoreApplication>
#include <QProcess>
#include <QTimer>
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sched.h>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr auto coreMode = "--core";
constexpr auto windowMode = "--window";

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void useCores(unsigned cores) {
    cpu_set_t set;
    CPU_ZERO(&set);
    for (std::size_t core = 0; core < cores; ++core)
        CPU_SET(core, &set);
    sched_setaffinity(0, sizeof set, &set);
}

double memoryMb(const std::string& line) {
    std::ifstream status("/proc/self/status");
    for (std::string text; std::getline(status, text);)
        if (text.starts_with(line))
            return std::stod(text.substr(line.size())) / 1024;
    return 0;
}

class YesBox final : public platform::MessageBox {
public:
    void show(platform::Icon /*icon*/, std::string_view /*title*/, std::string_view text) override {
        std::fprintf(stderr, "%s\n", std::string(text).c_str());
    }

    platform::Answer ask(platform::Icon /*icon*/, std::string_view /*title*/, std::string_view /*text*/,
                         platform::Answer /*defaultAnswer*/) override {
        return platform::Answer::yes;
    }
};

class WorkingWindow final : public support::QuietWindow {
public:
    void waitFor(const std::function<void()>& work) override { ui::system::runInBackground(work); }

    void later(const std::function<void(const std::stop_token&)>& /*work*/) override {}
};

/// Prints seconds, and megabytes more than before. What can be deleted later is not.
int installOnly(int argc, char* argv[], const fs::path& program) {
    const QCoreApplication application(argc, argv);
    ui::system::BackgroundArchive archive;
    YesBox box;
    WorkingWindow window;
    const auto before = memoryMb("VmRSS:");
    const auto start = Clock::now();
    app::CatalogZips(program, archive, box, window).installAll();
    const auto seconds = secondsSince(start);
    const auto memory = memoryMb("VmHWM:") - before;
    std::printf("%f %f\n", seconds, memory);
    return fs::exists(program / "ACME" / "PrdPrm.dat") ? 0 : 1;
}

class BenchProgramFile final : public platform::ProgramFile {
public:
    explicit BenchProgramFile(fs::path path) : m_path(std::move(path)) {}

    [[nodiscard]] fs::path path() const override { return m_path; }

    [[nodiscard]] bool isReadOnly() const override { return false; }

private:
    fs::path m_path;
};

/// Begins to measure at the first paint: before the start-up, which is called by what the paint posts.
class FirstPaint final : public QObject {
public:
    explicit FirstPaint(bench::BusyWatch& watch) : m_watch(watch) {}

    Clock::time_point at;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && at == Clock::time_point{}) {
            at = Clock::now();
            m_watch.restart();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bench::BusyWatch& m_watch;
};

/// Prints seconds from the first paint to the first page, the longest busy stretch until then in
/// milliseconds, and the longest one from then on until nothing is left to delete.
int installInWindow(int argc, char* argv[], const fs::path& folder) {
    ui::system::prepareBrowser();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    const QApplication application(argc, argv);
    QApplication::setApplicationName("Tavorine bench");
    BenchProgramFile file(folder / "Tavorine");
    ui::system::PrimaryScreen screen;
    ui::system::FileInstanceLock lock;
    ui::qt::Program program({file, screen, lock, folder / "own", folder / "kept"});
    bench::BusyWatch watch;
    FirstPaint first(watch);
    qApp->installEventFilter(&first);
    double unpacking = -1;
    QTimer end;
    // The title changes between the installing and the first page, for which the browser is started.
    QObject::connect(&program.welcome(), &QWidget::windowTitleChanged, [&] {
        unpacking = watch.longestMs();
        watch.restart();
    });
    QObject::connect(&end, &QTimer::timeout, [&] {
        if (unpacking < 0 || !program.welcome().browser().idle() || fs::exists(folder / "Install.tmp"))
            return;
        std::printf("%f %f %f\n", secondsSince(first.at), unpacking, watch.longestMs());
        std::fflush(stdout);
        std::_Exit(0);
    });
    end.start(5);
    program.start();
    return QApplication::exec();
}

/// The zips of both versions and what the programs make of them, in a folder that goes at the end and not
/// before: where files have just been deleted, others are made many times slower. Emptied they are at once.
class Bench {
public:
    Bench() {
        fs::remove_all(m_root);
        for (const auto* version : {"00001", "00002"}) {
            fs::create_directories(m_root / version);
            bench::makePictureZip(m_root / version, version);
        }
    }

    ~Bench() { fs::remove_all(m_root); }

    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    /// A new program folder; with a version that is installed in it, if one is named.
    fs::path programFolder(std::string_view installed) {
        makeNext();
        std::ofstream(m_last / "Start.ini") << "[Email]\r\nStatus=Yes\r\n";
        if (!installed.empty()) {
            drop(installed, m_last);
            run({QCoreApplication::applicationFilePath(), coreMode, path(m_last)}, 2);
        }
        return m_last;
    }

    /// A new folder; with a version that bsdtar has unpacked into it, if one is named.
    fs::path peersFolder(std::string_view installed) {
        makeNext();
        if (!installed.empty())
            unpack(installed, m_last, 2);
        return m_last;
    }

    void drop(std::string_view version, const fs::path& program) const {
        fs::copy_file(zip(version), program / "ACME.zip");
        ::sync(); // so that nothing is left to do when the measuring begins
    }

    double unpack(std::string_view version, const fs::path& folder, unsigned cores) {
        ::sync();
        const auto start = Clock::now();
        run({"bsdtar", "-xf", path(zip(version)), "-C", path(folder)}, cores);
        return secondsSince(start);
    }

    /// The numbers that it prints.
    static std::vector<double> run(const QStringList& command, unsigned cores) {
        QProcess process;
        process.setChildProcessModifier([cores] { useCores(cores); });
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(command.front(), command.mid(1));
        process.waitForFinished(120'000);
        std::istringstream printed(process.readAllStandardOutput().toStdString());
        std::vector<double> numbers;
        for (double number = 0; printed >> number;)
            numbers.push_back(number);
        numbers.resize(3);
        return numbers;
    }

    static QString path(const fs::path& path) { return QString::fromStdString(path.string()); }

private:
    void makeNext() {
        if (!m_last.empty())
            for (const auto& entry : fs::recursive_directory_iterator(m_last))
                if (entry.is_regular_file())
                    fs::resize_file(entry.path(), 0);
        m_last = m_root / std::to_string(m_number++);
        fs::create_directories(m_last);
    }

    [[nodiscard]] fs::path zip(std::string_view version) const { return m_root / version / "ACME.zip"; }

    fs::path m_root = fs::temp_directory_path() / "tavorine-install-bench";
    fs::path m_last;
    int m_number = 0;
};

std::optional<Bench> shared;

Bench& inputs() {
    if (!shared)
        shared.emplace();
    return *shared;
}

struct Case {
    std::string_view name;
    std::string_view installed; ///< version; none for a new supplier
    std::string_view arrived;
};

constexpr Case cases[] = {
    {"install", "", "00001"}, {"update", "00001", "00002"}, {"update unchanged", "00001", "00001"}};

void measureProgram(benchmark::State& state, const Case& what, unsigned cores) {
    for (auto _ : state) {
        const auto folder = inputs().programFolder(what.installed);
        inputs().drop(what.arrived, folder);
        const auto numbers =
            inputs().run({QCoreApplication::applicationFilePath(), coreMode, Bench::path(folder)}, cores);
        state.SetIterationTime(numbers[0]);
        state.counters["memory_mb"] = numbers[1];
    }
}

void measurePeer(benchmark::State& state, const Case& what, unsigned cores) {
    for (auto _ : state) {
        const auto folder = inputs().peersFolder(what.installed);
        state.SetIterationTime(inputs().unpack(what.arrived, folder, cores));
    }
}

void measureWindow(benchmark::State& state, const Case& what) {
    for (auto _ : state) {
        const auto folder = inputs().programFolder(what.installed);
        inputs().drop(what.arrived, folder);
        const auto numbers =
            inputs().run({QCoreApplication::applicationFilePath(), windowMode, Bench::path(folder)}, 2);
        state.SetIterationTime(numbers[0]);
        state.counters["frozen_ms"] = numbers[1];
        state.counters["frozen_with_page_ms"] = numbers[2];
    }
}

void registerAll() {
    const auto add = [](const std::string& name, auto measure) {
        benchmark::RegisterBenchmark(name.c_str(), measure)
            ->Iterations(1)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    };
    for (const auto& what : cases) {
        for (const unsigned cores : {1U, 2U}) {
            const auto name = std::string(what.name) +
                              (cores == 1 ? "/5000 pictures, one core" : "/5000 pictures, two cores");
            add(name, [&what, cores](auto& state) { measureProgram(state, what, cores); });
            add(name + "/bsdtar", [&what, cores](auto& state) { measurePeer(state, what, cores); });
        }
        if (what.arrived != what.installed) // else there is a question to answer
            add(std::string(what.name) + "/5000 pictures, in the window",
                [&what](auto& state) { measureWindow(state, what); });
    }
}

}

int main(int argc, char* argv[]) {
    if (argc > 2 && std::strcmp(argv[1], coreMode) == 0)
        return installOnly(argc, argv, argv[2]);
    if (argc > 2 && std::strcmp(argv[1], windowMode) == 0)
        return installInWindow(argc, argv, argv[2]);
    const QCoreApplication application(argc, argv);
    // One after the other in turns, so that each meets the same machine as the one beside it.
    std::string repetitions = "--benchmark_repetitions=3";
    std::string turns = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments{argv[0], repetitions.data(), turns.data()};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    auto count = static_cast<int>(arguments.size());
    registerAll();
    benchmark::Initialize(&count, arguments.data());
    benchmark::RunSpecifiedBenchmarks();
    shared.reset();
    return 0;
}
