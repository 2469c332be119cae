#pragma once

#include <string>

namespace confinement {

/// The address of this machine in its private network.
inline constexpr const char* ownAddress = "192.0.2.1";

/// Takes the process, and all that it starts, out of the machine's networks into one of its own, in which
/// `ownAddress` stands for every host: names are looked up there, and nothing leads on. Must be called before
/// the process has threads. Returns why it cannot be done, or nothing.
[[nodiscard]] std::string enterPrivateNetwork();

}
