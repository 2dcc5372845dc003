// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppImage.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateFolder.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateInstallation.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <utility>

namespace Tavik {

UpdateInstallation::UpdateInstallation(const UpdateEnvironment& environment,
                                       UpdateUserDriver& driver,
                                       AppcastEnclosure enclosure,
                                       UpdateKind kind,
                                       std::function<void(const Outcome&)> ended)
    : m_environment(environment)
    , m_driver(driver)
    , m_enclosure(std::move(enclosure))
    , m_kind(std::move(kind))
    , m_ended(std::move(ended))
{ }

UpdateInstallation::~UpdateInstallation()
{
    *m_isWanted = false;
    discard(m_environment.workQueue, std::move(m_file));
}

void UpdateInstallation::begin()
{
    const auto obstacle = [image = replacesImage() ? m_environment.image : QString(),
                           folder = m_environment.folder] {
        return image.isEmpty() ? UpdateFolder::prepare(folder) : AppImage::whyNotReplaceable(image);
    };
    // After what is still being removed.
    m_environment.workQueue.run(
        WorkPriority::utility, obstacle, m_stage.news([this](const std::optional<QString>& reason) {
            if (reason) {
                end({.failure = *reason});
            } else {
                download();
            }
        }));
    m_driver.showDownloadInitiated(m_stage.answer([this] { end({}); }));
}

void UpdateInstallation::download()
{
    m_download = std::make_unique<UpdateDownload>(
        m_environment.transfer(),
        m_environment.workQueue,
        UpdateDownload::Request{.url = m_enclosure.url,
                                .length = m_enclosure.length,
                                .path = replacesImage()
                                    ? AppImage::partFile(m_environment.image)
                                    : UpdateFolder::partFile(m_environment.folder)},
        UpdateDownload::Hooks{.progress =
                                  [this](qint64 received) {
                                      m_driver.showDownloadProgress(received, m_enclosure.length);
                                  },
                              .finish =
                                  [this](std::shared_ptr<PartFile> file, const QString& reason) {
                                      downloaded(std::move(file), reason);
                                  }});
}

void UpdateInstallation::downloaded(std::shared_ptr<PartFile> file, const QString& reason)
{
    m_stage.next();
    m_download.reset();
    if (!file) {
        end({.failure = reason});
        return;
    }
    m_file = std::move(file);
    m_environment.workQueue.run(
        WorkPriority::userInitiated,
        verification(),
        m_stage.news([this](const std::optional<QString>& fault) { verified(fault); }));
    m_driver.showVerifyingUpdate();
}

std::function<std::optional<QString>()> UpdateInstallation::verification() const
{
    const UpdateSignature::SignedFile file{.path = m_file->path(),
                                           .length = m_enclosure.length,
                                           .signature = m_enclosure.signature,
                                           .digest = m_enclosure.digest,
                                           .publicKey = m_environment.publicKey};
    return [file, image = replacesImage() ? m_environment.image : QString()] {
        std::optional<QString> fault = UpdateSignature::whyNotGenuine(file);
        return fault || image.isEmpty() ? fault : AppImage::whyNoSuccessor(file.path, image);
    };
}

void UpdateInstallation::verified(const std::optional<QString>& reason)
{
    if (reason) {
        end({.failure = *reason});
        return;
    }
    if (!replacesImage()) {
        handOver();
        return;
    }
    m_driver.showReadyToInstallAndRelaunch(m_stage.answer([this](UpdateChoice choice) {
        if (choice == UpdateChoice::install) {
            putInPlace();
        } else {
            end({});
        }
    }));
}

void UpdateInstallation::handOver()
{
    const std::optional<QString> obstacle
        = m_file->rename(UpdateFolder::packageFile(m_environment.folder, m_kind.suffix));
    if (obstacle) {
        end({.failure = *obstacle});
        return;
    }
    const auto handedOver = [this](const std::optional<QString>& fault) {
        if (fault) {
            end({.failure = *fault});
            return;
        }
        m_file->keep();
        m_driver.showUpdateHandedOver(m_stage.answer([this] { end({}); }));
    };
    m_environment.workQueue.run(
        WorkPriority::launch,
        [open = m_environment.open, file = QUrl::fromLocalFile(m_file->path())] {
            return open(file);
        },
        m_stage.news(handedOver));
}

void UpdateInstallation::putInPlace()
{
    // The question may have been there for days, and the file with it.
    const auto replace = [verify = verification(),
                          isWanted = m_isWanted,
                          image = m_environment.image,
                          file = m_file->path()] {
        std::optional<QString> fault = verify();
        return fault || !*isWanted ? fault : AppImage::replace(image, file);
    };
    const auto replaced = [this](const std::optional<QString>& fault) {
        if (fault) {
            end({.failure = *fault});
        } else {
            m_file->keep(); // Its name is free for another session.
            end({.programToRelaunch = m_environment.image});
        }
    };
    m_environment.workQueue.run(WorkPriority::utility, replace, m_stage.news(replaced));
    m_driver.showInstallingUpdate();
}

void UpdateInstallation::end(const Outcome& outcome)
{
    m_stage.next();
    m_download.reset();
    discard(m_environment.workQueue, std::move(m_file));
    const auto ended = m_ended;
    ended(outcome);
}

bool UpdateInstallation::replacesImage() const
{
    return m_kind.way == UpdateKind::Way::replacesImage;
}

} // namespace Tavik
