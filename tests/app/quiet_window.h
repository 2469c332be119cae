#pragma once

#include "app/welcome_window.h"

namespace support {

/// A start-up window that shows nothing.
class QuietWindow : public app::WelcomeWindow {
public:
    void confineToProgram(const std::filesystem::path& /*programFolder*/) override {}

    void confineToSupplier(const catalog::Folders& /*folders*/) override {}

    void setCaption(std::string_view /*caption*/) override {}

    void setStatus(std::string_view /*text*/) override {}

    void waitFor(const std::function<void()>& work) override { work(); }

    void showPasswordEntry(std::string_view /*prompt*/) override {}

    void offerSupplierList(bool /*offered*/) override {}

    void hidePasswordEntry() override {}

    void focusPasswordOncePageIsUp() override {}

    void showPasswordConfirmation() override {}

    void retryPassword() override {}

    void retryPasswordAndConfirmation() override {}

    void openMainWindow(const app::Session& /*session*/) override {}
};

}
