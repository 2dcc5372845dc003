// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/DesktopPalette.h>
#include <TavikLauncher/Look/Look.h>

#include <QApplication>
#include <QStyle>

#include <array>

namespace Tavik {

namespace {

struct RoleColors
{
    QPalette::ColorRole role;
    QRgb dark;
    QRgb light;
};

constexpr std::array roleColors{
    RoleColors{QPalette::Window, 0xFF1E1F22, 0xFFF4F5F7},
    RoleColors{QPalette::WindowText, 0xFFF2F2F4, 0xFF1C1C1F},
    RoleColors{QPalette::Base, 0xFF2B2C30, 0xFFFFFFFF},
    RoleColors{QPalette::AlternateBase, 0xFF323338, 0xFFF4F5F7},
    RoleColors{QPalette::Text, 0xFFF2F2F4, 0xFF1C1C1F},
    RoleColors{QPalette::PlaceholderText, 0xFF9C9DA4, 0xFF6B6C73},
    RoleColors{QPalette::Button, 0xFF3C3D42, 0xFFE9EAEE},
    RoleColors{QPalette::ButtonText, 0xFFF2F2F4, 0xFF1C1C1F},
    RoleColors{QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    RoleColors{QPalette::ToolTipBase, 0xFF39393F, 0xFFFFFFFF},
    RoleColors{QPalette::ToolTipText, 0xFFF2F2F4, 0xFF1C1C1F},
    RoleColors{QPalette::Light, 0xFF5A5B61, 0xFFFFFFFF},
    RoleColors{QPalette::Midlight, 0xFF4A4B50, 0xFFF4F5F7},
    RoleColors{QPalette::Mid, 0xFF303136, 0xFFC8C9CF},
    RoleColors{QPalette::Dark, 0xFF151618, 0xFFA5A6AD},
    RoleColors{QPalette::Shadow, 0xFF000000, 0xFF76777E},
    RoleColors{QPalette::Highlight, 0xFF0A84FF, 0xFF0A84FF},
    RoleColors{QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    RoleColors{QPalette::Link, 0xFF6CB4FF, 0xFF0062CC},
    RoleColors{QPalette::LinkVisited, 0xFFC49BFF, 0xFF7A45C4},
};

/// Of what cannot be used now: texts, and the selection.
constexpr std::array disabledColors{
    RoleColors{QPalette::WindowText, 0xFF7A7B82, 0xFF9FA0A7},
    RoleColors{QPalette::Text, 0xFF7A7B82, 0xFF9FA0A7},
    RoleColors{QPalette::ButtonText, 0xFF7A7B82, 0xFF9FA0A7},
    RoleColors{QPalette::PlaceholderText, 0xFF5F6066, 0xFFB9BAC0},
    RoleColors{QPalette::Highlight, 0xFF4A4B50, 0xFFC8C9CF},
    RoleColors{QPalette::HighlightedText, 0xFF9C9DA4, 0xFF6B6C73},
};

QPalette made(bool isDark)
{
    QPalette palette;
    for (const RoleColors& colors : roleColors) {
        palette.setColor(colors.role, QColor::fromRgb(isDark ? colors.dark : colors.light));
    }
    for (const RoleColors& colors : disabledColors) {
        palette.setColor(
            QPalette::Disabled, colors.role, QColor::fromRgb(isDark ? colors.dark : colors.light));
    }
    return palette;
}

/// Two pure colours, which tells every window of ours to draw with them alone. The accent is strong
/// enough to be read on either.
QPalette pure(bool isDark)
{
    const QColor paper = isDark ? Qt::black : Qt::white;
    const QColor ink = isDark ? Qt::white : Qt::black;
    QPalette palette(paper, paper);
    using enum QPalette::ColorRole;
    for (const auto role :
         {WindowText, Text, ButtonText, BrightText, ToolTipText, PlaceholderText, Mid, Dark}) {
        palette.setColor(role, ink);
    }
    for (const auto role : {Base, AlternateBase, ToolTipBase, Light, Midlight}) {
        palette.setColor(role, paper);
    }
    const QColor accent = QColor::fromRgb(isDark ? 0xFFFFD700 : 0xFF0043B8);
    for (const auto role : {Highlight, Link, LinkVisited}) {
        palette.setColor(role, accent);
    }
    palette.setColor(HighlightedText, paper);
    return palette;
}

} // namespace

DesktopPalette::DesktopPalette(DesktopAppearance& appearance)
    : m_appearance(appearance)
{
    m_appearance.onChanged = [this] {
        apply();
    };
    apply();
}

DesktopPalette::~DesktopPalette()
{
    m_appearance.onChanged = nullptr;
}

std::optional<QPalette> DesktopPalette::replacing(const QPalette& toolkits, Wanted wanted)
{
    const Look shown = Look::of(toolkits);
    const bool isFree = wanted.scheme == ColorScheme::noPreference;
    const bool isDark = isFree ? shown.isDark : wanted.scheme == ColorScheme::dark;
    if (wanted.highContrast && !shown.isContrast) {
        return pure(isDark);
    }
    return isDark == shown.isDark ? std::nullopt : std::optional(made(isDark));
}

void DesktopPalette::apply()
{
    const Wanted wanted{.scheme = m_appearance.colorScheme(),
                        .highContrast = m_appearance.wantsHighContrast()};
    if (wanted == m_applied) {
        return;
    }
    m_applied = wanted;
    if (m_replaces) {
        // Without ours the toolkit's own show.
        QApplication::setPalette(QPalette());
    }
    // The style first: it brings the colours that show when no desktop gives any. A platform theme
    // that does give them follows the desktop by itself.
    const QPalette styles = QApplication::style()->standardPalette();
    const QPalette toolkits = QApplication::palette();
    const auto replacement = toolkits == styles ? replacing(toolkits, wanted) : std::nullopt;
    m_replaces = replacement.has_value();
    if (replacement) {
        QApplication::setPalette(*replacement);
    }
}

} // namespace Tavik
