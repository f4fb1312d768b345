#include "ui/qr/QRPreview.h"

#include "qr/QRGenerator.h"
#include "ui/base/blocks/EmptyState.h"
#include "ui/base/theme/Theme.h"

#include <QPainter>
#include <QStackedLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace morvak {

/// Paints a code in the middle of itself.
class QRPreview::Code final : public QWidget {
public:
    explicit Code(const Theme& theme) : m_theme(theme)
    {
        setObjectName(u"qrCode"_s);
        setFocusPolicy(Qt::TabFocus);
        setAccessibleName(QRPreview::tr("QR-code"));
    }

    void setText(const QString& text)
    {
        m_text = text;
        m_image = {};
        setAccessibleDescription(text);
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const qreal dpr = devicePixelRatioF();
        if (m_image.width() != std::lround(side * dpr))
            m_image = QRGenerator::generate(m_text, side * dpr).value_or(QImage());
        QRect area(0, 0, side, side);
        area.moveCenter(rect().center());
        QPainter painter(this);
        painter.drawImage(area, m_image);
        // Beside the code: nothing may come into its quiet zone.
        if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
            for (const int x : {area.left() - focusGap - focusWidth, area.right() + 1 + focusGap})
                painter.fillRect(x, area.top(), focusWidth, side, m_theme.color(Role::accent));
        }
    }

private:
    static constexpr int focusWidth = 2;
    static constexpr int focusGap = 4;

    const Theme& m_theme;
    QString m_text;
    QImage m_image;  // as sharp as the display needs it
};

QRPreview::QRPreview(const Theme& theme, QWidget* parent)
    : QWidget(parent),
      m_placeholder(new EmptyState(theme, u"qrcode"_s, {})),
      m_code(new Code(theme)),
      m_layers(new QStackedLayout(this))
{
    m_layers->addWidget(m_placeholder);
    m_layers->addWidget(m_code);
    setMinimumWidth(side);
    setFixedHeight(side);
}

void QRPreview::showCode(const QString& text)
{
    m_code->setText(text);
    m_layers->setCurrentWidget(m_code);
}

void QRPreview::showPlaceholder(const QString& headline, const QString& hint)
{
    m_placeholder->setHeadline(headline);
    m_placeholder->setHint(hint);
    m_layers->setCurrentWidget(m_placeholder);
}

}  // namespace morvak
