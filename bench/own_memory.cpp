#include "bench/own_memory.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>

namespace bench {
namespace {

double ownMb() {
    std::ifstream status("/proc/self/status");
    for (std::string name; status >> name;)
        if (double kilobytes = 0; name == "RssAnon:" && status >> kilobytes)
            return kilobytes / 1000;
    return 0;
}

}

OwnMemory::OwnMemory()
    : m_watch([this](const std::stop_token& stop) {
          while (!stop.stop_requested()) {
              m_mostMb = std::max(m_mostMb, ownMb());
              std::this_thread::sleep_for(std::chrono::milliseconds(5));
          }
      }) {}

double OwnMemory::mostMb() {
    m_watch.request_stop();
    if (m_watch.joinable())
        m_watch.join();
    return m_mostMb;
}

}
