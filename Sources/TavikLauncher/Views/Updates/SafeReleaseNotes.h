// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tavik {

struct ReleaseNotes;

/// What a version brings, as rich text that a QTextDocument may be given without looking: written
/// anew from the few elements and attributes that notes need, so no script, style, image or other
/// thing to be loaded remains, links lead to http, https and mailto only, and neither length nor
/// nesting can stall the layout. Empty when the notes have nothing to read. Any thread.
///
/// Show it where nothing is loaded and no link is followed by itself: a QTextBrowser with
/// `setOpenLinks(false)` whose `anchorClicked` asks `isSafeReleaseNotesLink` once more.
[[nodiscard]] QString safeReleaseNotesHtml(const ReleaseNotes& notes);

/// Whether the user may be taken there by a click.
[[nodiscard]] bool isSafeReleaseNotesLink(const QString& address);

} // namespace Tavik
