#pragma once

#include "platform/instance_lock.h"

#include <QLockFile>

#include <memory>

namespace ui::system {

/// A lock file of the user's own, named after the program folder; a crash leaves no ghost of it.
class FileInstanceLock final : public platform::InstanceLock {
public:
    [[nodiscard]] bool acquire(const std::filesystem::path& programFolder) override;

private:
    std::unique_ptr<QLockFile> m_lock;
};

}
