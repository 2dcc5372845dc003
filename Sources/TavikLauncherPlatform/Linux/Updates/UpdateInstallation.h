// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/Appcast.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateDownload.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateEnvironment.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateKind.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateStage.h>

#include <atomic>
#include <memory>

namespace Tavik {

/// From the user's consent to the new version: download, verification, and putting it in place or
/// handing it over. Until the image is replaced, which is one step, everything is as it was. Main
/// thread only.
class UpdateInstallation
{
public:
    struct Outcome
    {
        QString failure; ///< A whole sentence for people; empty without.
        std::optional<QString> programToRelaunch;
    };

    /// `ended` is called once and may destroy the installation. `kind` is one that installs.
    UpdateInstallation(const UpdateEnvironment& environment,
                       UpdateUserDriver& driver,
                       AppcastEnclosure enclosure,
                       UpdateKind kind,
                       std::function<void(const Outcome&)> ended);

    ~UpdateInstallation();
    UpdateInstallation(const UpdateInstallation&) = delete;
    UpdateInstallation& operator=(const UpdateInstallation&) = delete;

    /// Once. Destroying the installation cancels it.
    void begin();

private:
    void download();
    void downloaded(std::shared_ptr<PartFile> file, const QString& reason);
    void verified(const std::optional<QString>& reason);
    void handOver();
    void putInPlace();
    void end(const Outcome& outcome);
    [[nodiscard]] bool replacesImage() const;
    /// Whether the file is what was signed, and suits.
    [[nodiscard]] std::function<std::optional<QString>()> verification() const;

    const UpdateEnvironment& m_environment;
    UpdateUserDriver& m_driver;
    AppcastEnclosure m_enclosure;
    UpdateKind m_kind;
    std::function<void(const Outcome&)> m_ended;
    std::unique_ptr<UpdateDownload> m_download;
    std::shared_ptr<PartFile> m_file;
    /// Read off the main thread, right before the image is replaced.
    std::shared_ptr<std::atomic_bool> m_isWanted = std::make_shared<std::atomic_bool>(true);
    UpdateStage m_stage;
};

} // namespace Tavik
