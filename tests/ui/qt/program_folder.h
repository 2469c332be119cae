#pragma once

#include "tests/support/catalog_builder.h"
#include "tour/script.h"
#include "ui/qt/program.h"
#include "ui/system/file_instance_lock.h"
#include "ui/system/primary_screen.h"

#include <QLineEdit>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

/// The whole program in a program folder of the test's own, driven as a person would.
class ProgramTest : public testing::Test {
protected:
    ProgramTest();

    /// Saves a supplier's zip into the program folder: its marker, data files and templates. `extra` are
    /// further entries, by name.
    void deliver(const std::string& supplier, const support::CatalogBuilder& catalog,
                 const std::map<std::string, std::string>& extra = {});

    /// A small catalogue with a table of contents, a group and two products in it.
    [[nodiscard]] static support::CatalogBuilder smallCatalog(const std::string& name);

    void writeFile(const std::string& name, const std::string& bytes) const;
    [[nodiscard]] std::string readFile(const std::string& name) const;
    [[nodiscard]] bool exists(const std::string& name) const;

    /// Starts the program and plays the script to its end.
    [[nodiscard]] bool play();

    void answer(const QString& title, QMessageBox::StandardButton button);

    void answerEmailQuestion() { answer("Tavorine Catalog Viewer", QMessageBox::Yes); }

    /// Types into the password entry as soon as the welcome page is up, and presses Enter.
    void enterPassword(const QString& password);
    void closeMainWindow();

    [[nodiscard]] static QWebEngineView* page() { return tour::visible<QWebEngineView>("WbPage"); }

    [[nodiscard]] static QWebEngineView* startPage() { return tour::visible<QWebEngineView>("WebBrowser1"); }

    [[nodiscard]] static bool shows(QWebEngineView* view, const QString& text) {
        return view && tour::pageText(*view).contains(text);
    }

    std::filesystem::path folder;
    std::filesystem::path kept; ///< where orders are kept; empty: none are
    tour::Script script;
    std::vector<QString> boxTexts; ///< what the answered boxes said

private:
    class TestProgramFile final : public platform::ProgramFile {
    public:
        explicit TestProgramFile(std::filesystem::path path) : m_path(std::move(path)) {}

        [[nodiscard]] std::filesystem::path path() const override { return m_path; }

        [[nodiscard]] bool isReadOnly() const override { return false; }

    private:
        std::filesystem::path m_path;
    };
};
