#include "ui/base/theme/StyleSheet.h"

#include <QFile>
#include <QHash>

using namespace Qt::StringLiterals;

namespace morvak {

namespace {

constexpr double disabledOpacity = 0.45;

/// Colours that are mixed from the roles' and that only the style sheet needs.
QHash<QString, QColor> mixedColors(Scheme scheme)
{
    const auto color = [scheme](Role role) { return colorOf(role, scheme); };
    return {
        {u"pressed"_s, blended(color(Role::text), color(Role::hover), 0.08)},
        {u"segments"_s, blended(color(Role::text), color(Role::surface), 0.08)},
        {u"accentHover"_s, blended(color(Role::text), color(Role::accent), 0.12)},
        {u"accentPressed"_s, blended(color(Role::text), color(Role::accent), 0.24)},
        {u"disabled"_s, blended(color(Role::text), color(Role::card), disabledOpacity)},
        {u"disabledFilled"_s, blended(color(Role::text), color(Role::line), disabledOpacity)},
        {u"handle"_s, blended(color(Role::secondary), color(Role::surface), 0.45)},
    };
}

QHash<QString, QString> tokens(Scheme scheme)
{
    QHash<QString, QString> values{{u"scheme"_s, scheme == Scheme::dark ? u"dark"_s : u"light"_s}};
    for (const auto& [role, name] : roleNames)
        values.insert(name, colorOf(role, scheme).name());
    const QHash<QString, QColor> mixed = mixedColors(scheme);
    for (auto it = mixed.cbegin(); it != mixed.cend(); ++it)
        values.insert(it.key(), it.value().name());
    return values;
}

QString templateText()
{
    QFile file(u":/morvak/style.qss"_s);
    const bool opened = file.open(QIODevice::ReadOnly);
    Q_ASSERT(opened);
    return opened ? QString::fromUtf8(file.readAll()) : QString();
}

/// Replaces each `@name` for which there is a value.
QString filledIn(const QString& text, const QHash<QString, QString>& values)
{
    QString filled;
    qsizetype at = 0;
    while (at < text.size()) {
        const qsizetype start = text.indexOf(u'@', at);
        if (start < 0)
            break;
        qsizetype end = start + 1;
        while (end < text.size() && text.at(end).isLetter())
            ++end;
        const QString name = text.sliced(start + 1, end - start - 1);
        filled += QStringView(text).sliced(at, start - at);
        filled += values.value(name, u'@' + name);
        at = end;
    }
    filled += QStringView(text).sliced(at);
    return filled;
}

}  // namespace

QString styleSheetOf(Scheme scheme)
{
    QString sheet = filledIn(templateText(), tokens(scheme));
    for (const auto& [role, name] : roleNames)
        sheet += u"*[textRole=\"%1\"] { color: %2; }\n"_s.arg(name, colorOf(role, scheme).name());
    return sheet;
}

QPalette paletteOf(Scheme scheme)
{
    const auto color = [scheme](Role role) { return colorOf(role, scheme); };
    QPalette palette(color(Role::text), color(Role::card), color(Role::card), color(Role::line),
                     color(Role::secondary), color(Role::text), color(Role::onAccent), color(Role::card),
                     color(Role::surface));
    palette.setColor(QPalette::AlternateBase, color(Role::hover));
    palette.setColor(QPalette::Highlight, color(Role::accent));
    palette.setColor(QPalette::HighlightedText, color(Role::onAccent));
    palette.setColor(QPalette::Link, color(Role::accent));
    palette.setColor(QPalette::LinkVisited, color(Role::accent));
    palette.setColor(QPalette::PlaceholderText, color(Role::secondary));
    palette.setColor(QPalette::ToolTipBase, color(Role::card));
    palette.setColor(QPalette::ToolTipText, color(Role::text));
    const QColor disabled = blended(color(Role::text), color(Role::card), disabledOpacity);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    return palette;
}

}  // namespace morvak
