#include "tests/confinement/reading_folder.h"

#include "base/files.h"

#include <array>
#include <string_view>

namespace confinement {
namespace fs = std::filesystem;

namespace {

constexpr std::array own{"own.htm", "own.js",  "own.css", "own.svg",
                         "own.png", "own.txt", "own.wav", "own.ttf"};

constexpr std::array strangers{
    "../BETA/own.htm", "../BETA/own.js",  "../BETA/own.css", "../BETA/own.svg",
    "../BETA/own.png", "../BETA/own.txt", "../BETA/own.wav", "../BETA/own.ttf",
    "../BETA/Tmp.htm", "../beta/OWN.png", "link.htm",        "link.png",
    "beta/own.png",    "../Tmp.htm",      "../Start.ini",    "../Start.ect",
    "../ACME.sup",     "../help/own.png", "../help/own.htm", "Tmp.htm",
    "TMP.HTM",         "Tmp.htm?x",       "User.ini",        "Banner.Ect",
    "PrdPrm.dat",      "GrpIdx.idx",      "x.zip",           "folder/../../BETA/own.js"};

constexpr auto page = "<body>secret<script>top.postMessage('page ' + location, '*')</script>";
constexpr auto script = "/* secret */ if (self.document) window.secret = 1; else postMessage('secret');";
constexpr auto style = ":root { --secret: 1 }";
constexpr auto drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='7' height='5'>"
                         "<rect id='secret' width='7' height='5'/></svg>";

// Silence: one channel, 8 bits, 8000 a second.
std::string sound() {
    using namespace std::string_view_literals;
    return std::string("RIFF\x2c\x01\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x40\x1f\0\0\1\0\x08\0data"sv) +
           std::string("\x08\x01\0\0"sv) + std::string(264, '\x80');
}

// 7 pixels wide, one bit each.
std::string picture() {
    using namespace std::string_view_literals;
    return std::string(
        "GIF87a\7\0\5\0\x80\0\0\xff\xff\xff\0\0\0,\0\0\0\0\7\0\5\0\0\2\6\x84\x8f\xa9\xcb\xed\x0f\0;"sv);
}

std::string list(const auto& files) {
    std::string text;
    for (const auto* file : files)
        text += std::string(text.empty() ? "'" : ", '") + file + "'";
    return "[" + text + "]";
}

std::string pageThatReads(const std::string& files) {
    const auto tools = base::readFile(TAVORINE_CONFINEMENT_FOLDER "/reading.js").value();
    return "<script>" + tools + "readEarly('../BETA/own.htm')</script><body><script>readAll(" + files +
           ")</script>";
}

void fill(const fs::path& folder) {
    fs::create_directories(folder);
    base::replaceFile(folder / "own.htm", page);
    base::replaceFile(folder / "own.js", script);
    base::replaceFile(folder / "own.css", style);
    base::replaceFile(folder / "own.svg", drawing);
    base::replaceFile(folder / "own.png", picture());
    base::replaceFile(folder / "own.txt", "secret");
    base::replaceFile(folder / "own.wav", sound());
    fs::copy_file("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", folder / "own.ttf",
                  fs::copy_options::overwrite_existing);
    base::replaceFile(folder / "Tmp.htm", page);
}

}

catalog::Folders makeTwoSuppliers(const fs::path& programFolder) {
    const auto acme = programFolder / "ACME";
    for (const auto& folder : {acme, programFolder / "BETA", programFolder / "help"})
        fill(folder);
    for (const char* name : {"Tmp.htm", "Start.ini", "Start.ect", "ACME.sup", "ACME/User.ini",
                             "ACME/Banner.Ect", "ACME/PrdPrm.dat", "ACME/GrpIdx.idx", "ACME/x.zip"})
        base::replaceFile(programFolder / name, page);
    base::replaceFile(acme / "strangers.htm", pageThatReadsStrangers());
    fs::create_symlink(programFolder / "BETA/own.htm", acme / "link.htm");
    fs::create_symlink(programFolder / "BETA/own.png", acme / "link.png");
    fs::create_symlink(programFolder / "BETA", acme / "beta");
    return {programFolder, acme, acme};
}

std::string pageThatReadsStrangers() {
    return pageThatReads(list(strangers));
}

std::string pageThatReadsItsOwn() {
    return pageThatReads(list(own));
}

}
