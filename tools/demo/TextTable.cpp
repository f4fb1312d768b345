#include "demo/TextTable.h"

#include <algorithm>
#include <array>
#include <utility>

namespace morvak::demo {

namespace {

/// The wide ranges that names and labels meet (Unicode Standard Annex 11).
bool isWide(char32_t character)
{
    static constexpr std::array<std::pair<char32_t, char32_t>, 8> ranges{{{0x1100, 0x115f},
                                                                          {0x2e80, 0xa4cf},
                                                                          {0xac00, 0xd7a3},
                                                                          {0xf900, 0xfaff},
                                                                          {0xfe30, 0xfe6f},
                                                                          {0xff00, 0xff60},
                                                                          {0x1f300, 0x1faff},
                                                                          {0x20000, 0x3fffd}}};
    return std::ranges::any_of(ranges, [character](const auto& range) {
        return character >= range.first && character <= range.second;
    });
}

bool isCombining(char32_t character)
{
    const QChar::Category category = QChar::category(character);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing ||
           category == QChar::Other_Format;
}

QString line(const QStringList& cells, const QList<qsizetype>& widths)
{
    QString text;
    for (qsizetype i = 0; i < cells.size(); ++i)
        text += QStringLiteral("  ") + cells.at(i) + QString(widths.at(i) - terminalWidth(cells.at(i)), u' ');
    while (text.endsWith(u' '))
        text.chop(1);
    return text + u'\n';
}

}  // namespace

qsizetype terminalWidth(const QString& text)
{
    qsizetype width = 0;
    for (const char32_t character : text.toUcs4())
        width += isCombining(character) ? 0 : isWide(character) ? 2 : 1;
    return width;
}

QString textTable(const QStringList& heading, const QList<QStringList>& rows)
{
    QList<qsizetype> widths;
    for (qsizetype column = 0; column < heading.size(); ++column) {
        qsizetype width = terminalWidth(heading.at(column));
        for (const QStringList& row : rows)
            width = std::max(width, terminalWidth(row.at(column)));
        widths.append(width);
    }
    QStringList rule;
    for (const qsizetype width : widths)
        rule.append(QString(width, u'─'));
    QString table = line(heading, widths) + line(rule, widths);
    for (const QStringList& row : rows)
        table += line(row, widths);
    return table;
}

}  // namespace morvak::demo
