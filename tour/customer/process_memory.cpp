#include "tour/customer/process_memory.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <unistd.h>
#include <vector>

namespace tour {
namespace {
namespace fs = std::filesystem;

struct Process {
    int id;
    int parent;
};

std::string textOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// Behind the name, which may hold anything, come the state and the parent.
int parentOf(int id) {
    const auto stat = textOf("/proc/" + std::to_string(id) + "/stat");
    const auto behindName = stat.rfind(')');
    if (behindName == std::string::npos)
        return 0;
    std::istringstream rest(stat.substr(behindName + 1));
    std::string state;
    int parent = 0;
    rest >> state >> parent;
    return parent;
}

std::vector<Process> processes() {
    std::vector<Process> all;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator("/proc", error)) {
        const auto name = entry.path().filename().string();
        int id = 0;
        const auto* const end = name.data() + name.size();
        if (std::from_chars(name.data(), end, id).ptr == end && id > 0)
            all.push_back({id, parentOf(id)});
    }
    return all;
}

std::set<int> family() {
    const auto all = processes();
    std::set<int> members{static_cast<int>(getpid())};
    for (std::size_t before = 0; before != members.size();) {
        before = members.size();
        for (const auto& process : all)
            if (members.contains(process.parent))
                members.insert(process.id);
    }
    return members;
}

// "--type=renderer" and the like; the program itself has none.
std::string kindOf(int id) {
    constexpr std::string_view option = "--type=";
    const auto line = textOf("/proc/" + std::to_string(id) + "/cmdline");
    const auto at = line.find(option);
    if (at == std::string::npos)
        return id == getpid() ? "program" : "other";
    const auto kind = line.substr(at + option.size());
    return kind.substr(0, kind.find_first_of(std::string_view(" \0", 2)));
}

Memory memoryOf(int id) {
    std::istringstream lines(textOf("/proc/" + std::to_string(id) + "/smaps_rollup"));
    Memory sum;
    for (std::string word; lines >> word;) {
        std::size_t kilobytes = 0;
        if (word == "Pss:" && lines >> kilobytes)
            sum.all += kilobytes;
        else if ((word == "Pss_Anon:" || word == "Pss_Shmem:") && lines >> kilobytes)
            sum.withoutFiles += kilobytes;
    }
    return sum;
}

}

std::map<std::string, Memory> memoryByKind() {
    std::map<std::string, Memory> kinds;
    for (const int id : family())
        kinds[kindOf(id)] += memoryOf(id);
    return kinds;
}

Memory total(const std::map<std::string, Memory>& byKind) {
    Memory sum;
    for (const auto& [kind, memory] : byKind)
        sum += memory;
    return sum;
}

}
