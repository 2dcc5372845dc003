// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QRandomGenerator>

namespace Tavik::Test {

/// Damages well-formed input a little at a time, the same way for the same seed.
class Mutator
{
public:
    explicit Mutator(quint32 seed)
        : m_random(seed)
    { }

    /// `input` after one to four changes, at most a few megabytes long.
    [[nodiscard]] QByteArray mutate(const QByteArray& input)
    {
        QByteArray output = input;
        const int changes = m_random.bounded(1, 5);
        for (int change = 0; change < changes; ++change) {
            changeOnce(output);
        }
        constexpr qsizetype most = 6 * 1024 * 1024;
        return output.left(most);
    }

private:
    void changeOnce(QByteArray& bytes)
    {
        // Huge insertions are slow to digest and therefore rare.
        if (m_random.bounded(200) == 0) {
            return insertHuge(bytes);
        }
        switch (m_random.bounded(6)) {
        case 0:
            return flipBits(bytes);
        case 1:
            return bytes.truncate(position(bytes));
        case 2: // Duplicate a piece.
            bytes.insert(position(bytes), piece(bytes));
            return;
        case 3: // Write a piece over another.
            bytes.replace(position(bytes), 32, piece(bytes));
            return;
        case 4: // Cut a piece out.
            bytes.remove(position(bytes), m_random.bounded(1, 33));
            return;
        default:
            insertToken(bytes);
        }
    }

    void flipBits(QByteArray& bytes)
    {
        const int flips = m_random.bounded(1, 9);
        for (int flip = 0; flip < flips && !bytes.isEmpty(); ++flip) {
            const auto at = m_random.bounded(bytes.size());
            bytes[at] = static_cast<char>(bytes[at] ^ (1 << m_random.bounded(8)));
        }
    }

    void insertToken(QByteArray& bytes)
    {
        static const QByteArrayList tokens
            = QByteArray("\xff\xfe|\xed\xa0\x80|<|>|</|<!--|-->|<![CDATA[|&#0;|&#xffffffff;|\"|"
                         "\\u0000|{|[|-1|1e999|nan|18446744073709551616|\n")
                  .split('|')
            << QByteArray(1, '\0');
        bytes.insert(position(bytes), tokens[m_random.bounded(tokens.size())]);
    }

    void insertHuge(QByteArray& bytes)
    {
        const QByteArray repeated = piece(bytes);
        if (!repeated.isEmpty()) {
            const qsizetype length = m_random.bounded(1 << 22);
            bytes.insert(position(bytes), repeated.repeated(length / repeated.size()));
        }
    }

    [[nodiscard]] qsizetype position(const QByteArray& bytes)
    {
        return m_random.bounded(bytes.size() + 1);
    }

    [[nodiscard]] QByteArray piece(const QByteArray& bytes)
    {
        return bytes.mid(position(bytes), m_random.bounded(1, 65));
    }

    QRandomGenerator m_random;
};

} // namespace Tavik::Test
