// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

#include <functional>

namespace Tavik::Test {

/// Every window and every state of the ring, drawn over a desktop of fakes.
class GalleryScenes
{
public:
    using Keep = std::function<void(const QString& name, const QImage& picture)>;

    /// "light", "dark", "contrast-light" or "contrast-dark".
    explicit GalleryScenes(const QString& scheme);
    void drawAll(const Keep& keep);

private:
    void drawRing(const Keep& keep);
    void drawSettings(const Keep& keep);
    void drawSmallWindows(const Keep& keep);
    void drawUpdates(const Keep& keep);

    QString m_scheme;
};

} // namespace Tavik::Test
