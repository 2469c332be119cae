#pragma once

#include "tour/customer/heartbeat.h"

#include <QObject>
#include <QTimer>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace tour {

/// A customer who does one thing after another in the main window, whatever comes to mind: goes through the
/// list, types quantities, searches, clicks in pages, fills in details, prints, e-mails, reads the help book.
/// Boxes and dialogs on the way are answered. What it finds wrong is printed at once and counted.
class Customer final : public QObject {
    Q_OBJECT

public:
    Customer(std::uint32_t seed, std::filesystem::path folder, Heartbeat& heartbeat);

    /// Begins, at the program's first start; the event loop must run.
    void start() { m_timer.start(0); }

    void stop() { m_stopped = true; }

    [[nodiscard]] std::size_t actions() const { return m_actions; }

    [[nodiscard]] std::size_t faults() const { return m_faults; }

private:
    struct Habit {
        const char* name;
        int weight;
        std::function<void()> act;
    };

    void act();
    bool goIn();
    bool answerWhatIsInFront();
    void addListHabits();
    void addOrderHabits();
    void addWindowHabits();

    void move();
    void typeQuantity();
    void pasteQuantities();
    void chooseGroup();
    void search();
    void clickPage(const char* view);
    void fillInDetail();
    void fillInDate();
    void compareTotals();
    bool press(const char* button);
    void complain(const std::string& what);

    [[nodiscard]] int any(int below);

    template <typename T, std::size_t size>
    [[nodiscard]] T oneOf(const T (&choices)[size]) {
        return choices[any(static_cast<int>(size))];
    }

    std::mt19937 m_random;
    std::filesystem::path m_folder;
    Heartbeat& m_heartbeat;
    std::vector<Habit> m_habits;
    QTimer m_timer;
    std::size_t m_actions = 0;
    std::size_t m_faults = 0;
    bool m_isIn = false;
    bool m_repriced = false; // since the last check out
    bool m_stopped = false;
};

}
