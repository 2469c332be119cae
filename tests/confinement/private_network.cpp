#include "tests/confinement/private_network.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace confinement {
namespace {

// An interface that is no loopback, since browsers pass over those, with the way to everywhere.
constexpr const char* makeNetwork = "PATH=$PATH:/usr/sbin:/sbin; ip link set lo up"
                                    " && ip link add here type veth peer name there"
                                    " && ip address add 192.0.2.1/24 dev here"
                                    " && ip link set here up && ip link set there up"
                                    " && ip route add default dev here";

void write(const std::string& file, const std::string& text) {
    std::ofstream(file) << text;
}

// An ordinary user is the administrator of what he has made for himself.
bool leaveNetworks() {
    if (::unshare(CLONE_NEWNET | CLONE_NEWNS) == 0)
        return true;
    const auto user = std::to_string(::getuid());
    const auto group = std::to_string(::getgid());
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNET | CLONE_NEWNS) != 0)
        return false;
    write("/proc/self/setgroups", "deny");
    write("/proc/self/uid_map", "0 " + user + " 1");
    write("/proc/self/gid_map", "0 " + group + " 1");
    return true;
}

// The file may go when it is bound: what is bound is its contents.
bool lookNamesUpHere() {
    std::string file = "/tmp/confinement.XXXXXX";
    const int made = ::mkstemp(file.data());
    if (made < 0)
        return false;
    ::close(made);
    write(file, std::string("nameserver ") + ownAddress + "\n");
    const bool bound = ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                       ::mount(file.c_str(), "/etc/resolv.conf", nullptr, MS_BIND, nullptr) == 0;
    ::unlink(file.c_str());
    return bound;
}

}

std::string enterPrivateNetwork() {
    if (!leaveNetworks())
        return std::string("no network namespace can be made here: ") + std::strerror(errno);
    if (std::system(makeNetwork) != 0)
        return "no network can be made in the namespace (package iproute2?)";
    if (!lookNamesUpHere())
        return std::string("/etc/resolv.conf cannot be replaced: ") + std::strerror(errno);
    return {};
}

}
