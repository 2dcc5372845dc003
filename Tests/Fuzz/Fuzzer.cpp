// SPDX-License-Identifier: MIT
#include <QGuiApplication>
#include <QLoggingCategory>

#include <Fuzz/Parsers.h>
#include <algorithm>
#include <string_view>

using namespace Tavik::Fuzz;
using namespace Qt::StringLiterals;

namespace {

Read chosen = nullptr;

} // namespace

/// The parser is named by TAVIK_FUZZ.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(*argc, *argv);
    QLoggingCategory::setFilterRules(u"*=false"_s);
    const std::string wanted = qgetenv("TAVIK_FUZZ").toStdString();
    const auto* parser = std::ranges::find(parsers, std::string_view(wanted), &Parser::name);
    require(parser != parsers.end(), "TAVIK_FUZZ names a parser");
    chosen = parser->read;
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    (void)chosen(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    return 0;
}
