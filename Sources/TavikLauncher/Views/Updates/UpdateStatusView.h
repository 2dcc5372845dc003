// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Views/Updates/TransferRate.h>
#include <TavikLauncher/Views/Updates/UpdateView.h>
#include <TavikLauncherPlatform/MainQueue.h>

namespace Tavik {

class DesktopAppearance;
class UpdateProgressBar;

/// How far an update has come: looking for it, downloading, verifying, ready, installing. Each
/// `show…` replaces the stage before; a stage's closures may be called more than once.
class UpdateStatusView final : public UpdateView
{
    Q_OBJECT

public:
    UpdateStatusView(MainQueue& mainQueue, const DesktopAppearance& appearance);

    void showChecking(std::function<void()> cancel);
    void showDownload(const QString& version, std::function<void()> cancel);
    /// Bytes that are here and bytes in all; 0 in all when that is not known.
    void showDownloadProgress(qint64 received, qint64 total);
    void showVerifying();
    void
    showReady(const QString& version, std::function<void()> install, std::function<void()> later);
    void showInstalling();

    void dismiss() override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Stage
    {
        QString title;
        QString text;
        bool isBusy = true;
        bool isTransfer = false;
        std::function<void()> cancel; ///< Without one there is no way back from the stage.
        std::function<void()> install;
        std::function<void()> later;
    };
    void show(Stage stage);
    void followTransfer();
    void refreshTransfer();

    MainQueue& m_mainQueue;
    Stage m_stage;
    QLabel* m_text = nullptr;
    UpdateProgressBar* m_bar = nullptr;
    QPushButton* m_cancel = nullptr;
    QPushButton* m_later = nullptr;
    QPushButton* m_install = nullptr;
    qint64 m_received = 0;
    qint64 m_total = 0;
    TransferRate m_rate;
    Task m_refreshes;
};

} // namespace Tavik
