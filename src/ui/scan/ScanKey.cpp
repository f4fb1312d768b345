#include "ui/scan/ScanKey.h"

#include "text/Lines.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace morvak {

namespace {

struct Accent {
    Qt::Key key;
    char16_t combining;
    char16_t alone;
};

constexpr std::array accents{
    Accent{Qt::Key_Dead_Grave, 0x0300, u'`'},      Accent{Qt::Key_Dead_Acute, 0x0301, u'\''},
    Accent{Qt::Key_Dead_Circumflex, 0x0302, u'^'}, Accent{Qt::Key_Dead_Tilde, 0x0303, u'~'},
    Accent{Qt::Key_Dead_Diaeresis, 0x0308, u'"'},  Accent{Qt::Key_Dead_Abovering, 0x030A, 0x00B0},
    Accent{Qt::Key_Dead_Caron, 0x030C, 0x02C7},    Accent{Qt::Key_Dead_Cedilla, 0x0327, 0x00B8},
    Accent{Qt::Key_Dead_Macron, 0x0304, 0x00AF},   Accent{Qt::Key_Dead_Breve, 0x0306, 0x02D8},
    Accent{Qt::Key_Dead_Abovedot, 0x0307, 0x02D9}, Accent{Qt::Key_Dead_Doubleacute, 0x030B, 0x02DD},
    Accent{Qt::Key_Dead_Ogonek, 0x0328, 0x02DB},
};

bool isModifier(int key)
{
    constexpr std::array others{Qt::Key_Super_L, Qt::Key_Super_R,   Qt::Key_Hyper_L,     Qt::Key_Hyper_R,
                                Qt::Key_AltGr,   Qt::Key_Multi_key, Qt::Key_Mode_switch, Qt::Key_unknown};
    return key == 0 || (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) ||
           std::find(others.begin(), others.end(), key) != others.end();
}

bool isPrintable(const QString& text)
{
    return !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate());
}

/// Where AltGr comes as Ctrl and Alt, text tells it from a shortcut.
bool isHeldForShortcut(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers();
    const bool altGr = held.testFlags(Qt::ControlModifier | Qt::AltModifier) && isPrintable(event.text());
    return !altGr && (held & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

bool isControlBreak(const QKeyEvent& event)
{
    const int key = event.key();
    return event.modifiers() == Qt::ControlModifier &&
           (key == Qt::Key_J || key == Qt::Key_M || key == Qt::Key_I);
}

bool isBreak(const QKeyEvent& event)
{
    const int key = event.key();
    const QString text = event.text();
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab ||
           (text.size() == 1 && (isLineBreak(text.front()) || text.front() == u'\t') &&
            key != Qt::Key_Backtab);
}

const Accent* accentOf(int key)
{
    const auto* const found =
        std::find_if(accents.begin(), accents.end(), [key](const Accent& a) { return a.key == key; });
    return found == accents.end() ? nullptr : found;
}

ScanKey::Kind kindOf(const QKeyEvent& event)
{
    using enum ScanKey::Kind;
    const int key = event.key();
    if (isModifier(key) && event.text().isEmpty())
        return modifier;
    if (isControlBreak(event))
        return controlBreak;
    if (isHeldForShortcut(event))
        return shortcut;
    if (isBreak(event))
        return lineBreak;
    if (isPrintable(event.text()))
        return text;
    if (accentOf(key))
        return deadKey;
    return key >= Qt::Key_F1 && key <= Qt::Key_F35 ? silent : other;
}

}  // namespace

ScanKey scanKeyOf(const QKeyEvent& event)
{
    ScanKey key{kindOf(event), event.key(), {}};
    if (key.kind == ScanKey::Kind::text)
        key.text = event.text();
    else if (key.kind == ScanKey::Kind::lineBreak || key.kind == ScanKey::Kind::controlBreak)
        key.text = u'\n';
    else if (key.kind == ScanKey::Kind::deadKey)
        key.text = QChar(accentOf(key.key)->combining);
    return key;
}

QString withAccent(QChar combining, const QString& text)
{
    if (text != QStringLiteral(" "))
        return (text + combining).normalized(QString::NormalizationForm_C);
    const auto* const accent = std::find_if(
        accents.begin(), accents.end(), [combining](const Accent& a) { return combining == a.combining; });
    return accent == accents.end() ? text : QString(QChar(accent->alone));
}

}  // namespace morvak
