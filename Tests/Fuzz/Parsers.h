// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <array>

/// Everything that reads what comes from outside. Each parser has a folder of well-formed input
/// under `corpus`, which the short test damages and the fuzzer starts from.
namespace Tavik::Fuzz {

/// Reads `bytes`, and ends the program when what comes of it is not safe. Returns whether it was
/// understood.
using Read = bool (*)(const QByteArray& bytes);

struct Parser
{
    const char* name; ///< Of its folder, too.
    Read read;
};

/// What must hold whatever was read: the fuzzer takes an abort for a fault, and so does a test.
inline void require(bool condition, const char* what)
{
    if (!condition) {
        qFatal("What was read breaks the rule: %s", what);
    }
}

// What people keep, and what we have written ourselves.
bool readBackup(const QByteArray& bytes);
bool readCache(const QByteArray& bytes);
bool readDefaults(const QByteArray& bytes);
bool readShortcut(const QByteArray& bytes);
// What programs install.
bool readBundle(const QByteArray& bytes);
bool readEntry(const QByteArray& bytes);
bool readIcon(const QByteArray& bytes);
bool readImage(const QByteArray& bytes);
bool readTheme(const QByteArray& bytes);
// What is fetched.
bool readFeed(const QByteArray& bytes);
bool readFetched(const QByteArray& bytes);
bool readNotes(const QByteArray& bytes);
// What the session tells.
bool readBindings(const QByteArray& bytes);
bool readRequest(const QByteArray& bytes);
bool readSway(const QByteArray& bytes);

inline constexpr std::array parsers{Parser{"backup", readBackup},
                                    Parser{"bindings", readBindings},
                                    Parser{"bundle", readBundle},
                                    Parser{"cache", readCache},
                                    Parser{"defaults", readDefaults},
                                    Parser{"entry", readEntry},
                                    Parser{"feed", readFeed},
                                    Parser{"fetched", readFetched},
                                    Parser{"icon", readIcon},
                                    Parser{"image", readImage},
                                    Parser{"notes", readNotes},
                                    Parser{"request", readRequest},
                                    Parser{"shortcut", readShortcut},
                                    Parser{"sway", readSway},
                                    Parser{"theme", readTheme}};

} // namespace Tavik::Fuzz
