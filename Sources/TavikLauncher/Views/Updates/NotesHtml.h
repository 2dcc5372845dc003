// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace Tavik {

class NotesWriter;

/// Reads whatever claims to be HTML and writes what of it is text, structure and emphasis. Scripts
/// and the like are left out with all they contain, unknown elements are left out around their
/// content. Linear in the length.
void writeNotesHtml(QStringView html, NotesWriter& writer);

} // namespace Tavik
