#pragma once

#include "frame/main/FirstSteps.h"
#include "frame/main/HomeFigures.h"

#include <QScrollArea>

#include <array>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace tarnwell {

class HomeLink;

/// What the main window says of the database.
struct HomeState {
    std::vector<FirstStep> steps; ///< Shown in place of the figures while there are any.
    HomeFigures figures;
    QString workstations; ///< Who has the database open; empty where that isn't known.
    QString backup;       ///< When it was copied last; empty without backups.
};

/// The free half of the main window, a place to begin: the day, the figures or the first steps, the last
/// jobs, and the database. Where the window is too small for it, it scrolls.
class HomePage : public QScrollArea {
    Q_OBJECT

public:
    explicit HomePage(QWidget* parent = nullptr);

    /// The line that names the database.
    [[nodiscard]] QLabel* database() const { return m_database; }
    /// What can have the keyboard, from top to bottom.
    [[nodiscard]] std::vector<HomeLink*> links() const;

    void showDay(const QString& day);
    void showState(const HomeState& state);
    /// In place of the figures: why there are none.
    void showFailure(const QString& reason);
    void offerBackups(bool isOffered);
    /// Has `due` fired once the page is painted and the events at hand are done.
    void askAfterPaint();

Q_SIGNALS:
    /// It is time to read what the page shows.
    void due();
    void screenChosen(const QString& key);
    void jobChosen(qint64 jobKey);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    static constexpr std::size_t figureCount = 3, jobCount = 3, stepCount = 5;
    struct StepLine {
        QLabel* mark;
        HomeLink* link;
        QLabel* hint;
        QString screen;
    };

    void addTitle(QVBoxLayout& column);
    [[nodiscard]] QWidget* makeFigures();
    [[nodiscard]] QWidget* makeJobs();
    [[nodiscard]] QWidget* makeSteps();
    [[nodiscard]] QWidget* makeDatabase();
    void showFigures(const HomeFigures& figures);
    void showSteps(const std::vector<FirstStep>& steps);

    QLabel* m_today = nullptr;
    QLabel* m_failure = nullptr;
    QLabel* m_database = nullptr;
    QLabel* m_workstations = nullptr;
    QLabel* m_backup = nullptr;
    HomeLink* m_backups = nullptr;
    QWidget* m_figuresPart = nullptr;
    QWidget* m_jobsPart = nullptr;
    QWidget* m_stepsPart = nullptr;
    std::array<QLabel*, figureCount> m_figures{};
    std::array<QLabel*, figureCount> m_figureNames{};
    std::array<HomeLink*, jobCount> m_jobs{};
    std::array<StepLine, stepCount> m_steps{};
    std::vector<ListedJob> m_listed;
    bool m_isDue = false;
};

} // namespace tarnwell
