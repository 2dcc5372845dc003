// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

namespace Tavik {

/// Writes the rich text of release notes, always well-formed: closes what is open, nests little,
/// starts a new block before one grows too long to lay out quickly, and takes no more once there is
/// enough to read.
class NotesWriter
{
public:
    enum class Kind {
        container, ///< Holds blocks: lists, their items, quotes.
        block, ///< Holds text: paragraphs, headings.
        span, ///< Inside a block.
    };

    /// Opens an element, `attributes` written as they stand. Blocks and containers close what
    /// cannot hold them first; what would nest too deep is left out.
    void open(Kind kind, const QString& name, const QString& attributes = {});
    /// Closes the innermost such element with what is inside; a span must be open in its block, a
    /// block in its container.
    void close(Kind kind, const QString& name);
    /// Closes the item of the innermost list, if one is open.
    void closeListItem();
    /// Text as it is to be read.
    void text(QStringView text);
    void lineBreak();
    void rule();

    [[nodiscard]] bool isOpen(QStringView name) const;
    /// Enough has been written: the rest is left out.
    [[nodiscard]] bool isFull() const;
    /// Closes everything. Empty when there was nothing to read.
    [[nodiscard]] QString finished();

private:
    struct Element
    {
        Kind kind = Kind::span;
        QString name;
        QString attributes;
    };

    void push(const Element& element);
    void pop();
    void closeBlock();
    void startNewBlock();
    [[nodiscard]] qsizetype count(Kind kind) const;

    QString m_output;
    QList<Element> m_open;
    qsizetype m_extent = 0; ///< What is costly to lay out counts as so many characters.
    qsizetype m_inBlock = 0; ///< Characters since the last block began.
    bool m_hasText = false;
};

} // namespace Tavik
