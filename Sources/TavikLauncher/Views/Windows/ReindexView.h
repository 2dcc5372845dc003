// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Windows/ReindexSession.h>

#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;
class QStackedLayout;

namespace Tavik {

class SymbolView;

/// The content of the re-index window: what the index is, a button that rebuilds it, the progress
/// and the success. Its window's owner shows the celebration and closes the window.
class ReindexView final : public QWidget
{
    Q_OBJECT

public:
    struct Actions
    {
        std::function<void()> onCelebrate;
        std::function<void()> onClose;
    };

    ReindexView(const ReindexSession::Dependencies& dependencies,
                Actions actions,
                QWidget* parent = nullptr);

    [[nodiscard]] const ReindexSession& session() const { return m_session; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] QLayout* makeHeader();
    [[nodiscard]] QWidget* makeExplanation();
    [[nodiscard]] QWidget* makeSuccess();
    [[nodiscard]] QLayout* makeButtons(MainQueue& mainQueue);
    void showPhase();
    void showCount();
    [[nodiscard]] QPushButton& defaultButton() const;

    ReindexSession m_session;
    Actions m_actions;
    QStackedLayout* m_body = nullptr; ///< The explanation or the success.
    QWidget* m_explanation = nullptr;
    QWidget* m_success = nullptr;
    SymbolView* m_mark = nullptr;
    QLabel* m_count = nullptr;
    QWidget* m_progress = nullptr;
    QPushButton* m_close = nullptr;
    QPushButton* m_reindex = nullptr;
};

} // namespace Tavik
