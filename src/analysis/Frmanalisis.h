// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/ReportBasis.h"
#include "stats/words/Estad.h"
#include "window/ChildWindow.h"

#include <functional>
#include <optional>

class QLabel;
class QScrollBar;
class QToolButton;

namespace grid {
class TNTabEd;
}
namespace window {
struct HandOff;
}

namespace controls {
class Memo;
class RadioGroup;
} // namespace controls

namespace analysis {

/// The window that analyses one square: choice of approach, test and level, the report and its
/// export.
///
/// Its creation loads the square: the file that the hand-off names as pending, otherwise one that
/// the user chooses. HandOff::fileOpened then tells whether a square was loaded; where none was the
/// grid is an empty 3 x 3 one.
class TAnalisis : public window::ChildWindow {
    Q_OBJECT

public:
    /// What runs a test: stats::runTest(), or what fails as a test of this window wants it to.
    using RunTest = std::function<stats::TestReport(stats::TestKind, const stats::TMatrix&, int n,
                                                    double alpha)>;

    /// Both references must outlive the window.
    TAnalisis(window::HandOff& handOff, window::Dialogs& dialogs, QWidget* parent = nullptr,
              RunTest runTest = stats::runTest);

    QString manualChapter() const override { return QStringLiteral("analisis"); }
    QSize sizeHint() const override;

    /// The significance level as a fraction; 0.05 at first.
    double Alpha() const { return m_alpha; }

    /// The exact distribution of the last test C or M of order 3, for tests and the outside:
    /// ExactCount() values of the statistic, ascending, then as many probabilities.
    stats::ExactValues ExactValues() const;
    int ExactCount() const { return m_exact.count(); }
    /// Whether the last test C or M had an exact distribution.
    bool ExactAvailable() const { return m_exactAvailable; }
    const QString& ExactTitle() const { return m_exactTitle; }
    /// "c" or "m" after a test C or M; empty before the first.
    const QString& ExactName() const { return m_exactName; }

signals:
    /// "Ver exacta..." made a graph window, owned by whatever holds this one, to be shown there.
    void graphOpened(window::ChildWindow* graph);

public slots:
    void FormActivate() override;
    void RadioGroup1Click();
    void ScrollBar1Change();
    void DatosChange();
    void SpeedButton1Click();
    void veClick();
    void Exportar1Click();

private:
    void createMenu();
    void createLayout();
    QWidget* createToolBar();
    QWidget* createScrollBox();
    QWidget* createOptions(QWidget* parent);
    QWidget* createReport();

    void openPendingFile(window::HandOff& handOff);
    void openChosenFile(window::HandOff& handOff);
    /// Loads the square of a file into the grid; says so and changes nothing where it holds none.
    bool importFile(const QString& fileName);
    void showBadFile(const QString& problem);

    stats::Approach selectedApproach() const;
    stats::TestKind selectedTest() const;
    stats::TMatrix observations() const;
    ReportBasis basis() const;
    /// Tells of a change after which the report no longer answers what stands in the window, and
    /// of one that takes such a change back.
    void tellWhetherStale();
    void tellBesideStale(const QString& told);
    /// Keeps the distribution of a sequence test for the graph.
    void keepExact(const stats::TestReport& report, const QString& statistic);

    const RunTest m_runTest;
    QToolButton* m_ve = nullptr;
    grid::TNTabEd* m_datos = nullptr;
    controls::RadioGroup* m_approaches = nullptr;
    controls::RadioGroup* m_tests = nullptr;
    QLabel* m_level = nullptr;
    QScrollBar* m_levelBar = nullptr;
    controls::Memo* m_report = nullptr;

    double m_alpha = 0.05;
    std::optional<ReportBasis> m_reported; ///< Of the report in view; none before the first.
    QString m_stale;                       ///< What is told of a stale report; empty without one.
    bool m_wasEdited = false;
    stats::ExactDistribution m_exact;
    bool m_exactAvailable = false;
    QString m_exactTitle;
    QString m_exactName;
};

} // namespace analysis
