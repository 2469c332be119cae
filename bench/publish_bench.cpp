#include "bench/own_memory.h"
#include "bench/temp_folder.h"
#include "publish/command/catalog_build.h"
#include "publish/source/source_folder.h"
#include "publish/zips/zip_writer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t productsPerGroup = 50;

const fs::path& workFolder() {
    static const bench::TempFolder folder("publish");
    return folder.path();
}

/// Texts that pack about as well as descriptions of goods do.
std::string description(std::mt19937& random) {
    static const std::vector<std::string> words = [] {
        std::mt19937 letters(3);
        std::vector<std::string> made(4000);
        for (auto& word : made)
            for (auto length = 3 + letters() % 8; length > 0; --length)
                word += "aeiourstlnmdkp"[letters() % 14];
        return made;
    }();
    std::string text;
    for (auto count = 40 + random() % 40; count > 0; --count)
        text += words[random() % words.size()] + " ";
    return text;
}

/// A source folder of so many products, their codes in no order, as suppliers have them.
fs::path sourceOf(std::size_t products) {
    const auto folder = workFolder() / std::to_string(products);
    if (!fs::create_directory(folder))
        return folder; // made before
    std::ofstream(folder / publish::parametersSource) << "Supplier name = Bench\nVersion = 00001\n";
    std::ofstream list(folder / publish::productsSource);
    list << "group,code,description,other,price,tax,details\n";
    std::mt19937 random(1);
    for (std::size_t number = 0; number < products; ++number)
        list << "Group " << number / productsPerGroup / 40 << ',' << random() % 1000 << '-' << number
             << ",Hexagon bolt M" << number % 40 << ",Box of 100," << number % 1000 << ".25,20,"
             << description(random) << '\n';
    return folder;
}

void makeDataFiles(std::size_t products, const fs::path& folder) {
    publish::Complaints complaints; // of templates that are not there
    publish::writeDataFiles(publish::readSourceFolder(sourceOf(products), {}, complaints), folder,
                            complaints);
}

/// The data files of so many products and a few hundred small pages, as a zip's contents.
const std::vector<fs::path>& contentsOfZip(std::size_t products) {
    static const auto files = [products] {
        const auto folder = workFolder() / "contents";
        makeDataFiles(products, folder);
        std::mt19937 random(2);
        for (int page = 0; page < 300; ++page)
            std::ofstream(folder / ("page" + std::to_string(page) + ".htm")) << description(random);
        std::vector<fs::path> found;
        for (const auto& entry : fs::directory_iterator(folder))
            found.push_back(entry.path());
        std::sort(found.begin(), found.end());
        return found;
    }();
    return files;
}

// From the list to the five data files, checks included.
void writeDataFiles(benchmark::State& state) {
    const auto products = static_cast<std::size_t>(state.range(0));
    static_cast<void>(sourceOf(products));
    for (auto _ : state)
        makeDataFiles(products, workFolder() / "data");
}

void writeZip(benchmark::State& state) {
    const auto& files = contentsOfZip(100'000);
    for (auto _ : state) {
        publish::ZipWriter zip(workFolder() / "OURS.zip", static_cast<unsigned>(state.range(0)));
        for (const auto& file : files)
            zip.addFile(file.filename().string(), file);
        zip.finish();
    }
}

// The files of a folder by the zip program that Debian has, at its usual level.
void zipByProgram(benchmark::State& state, const fs::path& folder) {
    const auto zip = (workFolder() / "THEIRS.zip").string();
    const auto command =
        "cd '" + folder.string() + "' && rm -f '" + zip + "' && exec zip -6 -q -X -r '" + zip + "' .";
    for (auto _ : state)
        if (std::system(command.c_str()) != 0)
            state.SkipWithError("zip is not installed");
}

void writeZipByProgram(benchmark::State& state) {
    static_cast<void>(contentsOfZip(100'000));
    zipByProgram(state, workFolder() / "contents");
}

// All that `tavorine-publish build` does, with as many threads as there are processors.
void publishCatalog(const fs::path& source, const fs::path& dataFolder) {
    publish::Complaints complaints; // of templates that are not there
    const auto built = publish::buildCatalog(source, {}, dataFolder, complaints);
    publish::writeCatalogZip(built, dataFolder, "BENCH", workFolder() / "BENCH.zip", {}, complaints);
}

void publishWhole(benchmark::State& state) {
    const auto source = sourceOf(static_cast<std::size_t>(state.range(0)));
    bench::OwnMemory memory;
    for (auto _ : state)
        publishCatalog(source, workFolder() / "published");
    state.counters["memory_mb"] = memory.mostMb();
}

// What comes of it packed, and nothing else.
void publishWholeByProgram(benchmark::State& state) {
    const auto folder = workFolder() / ("published-" + std::to_string(state.range(0)));
    makeDataFiles(static_cast<std::size_t>(state.range(0)), folder);
    zipByProgram(state, folder);
}

void catalogs(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

// Nearly as many products as there may be records; once, since it takes minutes with its peer.
void largest(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(990'000)->Repetitions(1)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(writeDataFiles)->Apply(catalogs);
BENCHMARK(writeDataFiles)->Apply(largest);
BENCHMARK(writeZip)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(writeZipByProgram)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(publishWhole)->Apply(catalogs);
BENCHMARK(publishWhole)->Apply(largest);
BENCHMARK(publishWholeByProgram)->Apply(catalogs);
BENCHMARK(publishWholeByProgram)->Apply(largest);

}
