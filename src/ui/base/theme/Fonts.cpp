#include "ui/base/theme/Fonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>

#include <cmath>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

bool hasTabularDigits(const QFont& font)
{
    const QFontMetricsF metrics(font);
    const qreal width = metrics.horizontalAdvance(u'0');
    for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
        if (std::abs(metrics.horizontalAdvance(digit) - width) > 0.01)
            return false;
    }
    return true;
}

/// Qt 6.4 cannot ask a font for its tabular figures, so a family is looked for that has no others.
QString tabularFamily(const QFont& font)
{
    QStringList candidates = font.families();
    candidates += {u"Noto Sans"_s, u"DejaVu Sans"_s, u"Liberation Sans"_s};
    for (const QString& family : std::as_const(candidates)) {
        QFont candidate(font);
        candidate.setFamilies({family});
        if (QFontDatabase::hasFamily(family) && hasTabularDigits(candidate))
            return family;
    }
    return QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
}

}  // namespace

int pixelSize(TextStyle style)
{
    switch (style) {
        case TextStyle::title:
            return 20;
        case TextStyle::section:
            return 15;
        case TextStyle::body:
            return 13;
        case TextStyle::caption:
            return 11;
    }
    Q_UNREACHABLE();
}

QFont styledFont(const QFont& interfaceFont, TextStyle style)
{
    QFont font(interfaceFont);
    font.setPixelSize(pixelSize(style));
    font.setWeight(style == TextStyle::title     ? QFont::Bold
                   : style == TextStyle::section ? QFont::DemiBold
                                                 : QFont::Normal);
    return font;
}

QFont tabularFont(const QFont& font)
{
    if (hasTabularDigits(font))
        return font;
    static QHash<QString, QString> known;  // main thread, as all fonts of widgets
    const QString key = font.family();
    if (!known.contains(key))
        known.insert(key, tabularFamily(font));
    QFont tabular(font);
    tabular.setFamilies({known.value(key)});
    return tabular;
}

}  // namespace morvak
