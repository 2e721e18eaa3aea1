#include "map/Mesa.h"

#include "platform/Twips.h"
#include "platform/VbText.h"

#include <QMouseEvent>
#include <QPainter>

Mesa::Mesa(QWidget* parent, int index) : QWidget(parent), m_index(index) {
    setObjectName(QStringLiteral("card"));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::PointingHandCursor);
}

Mesa* Mesa::carregarNova(int index) const {
    auto* nova = new Mesa(parentWidget(), index);
    nova->setVisible(false);
    nova->setFont(font());
    nova->lblLegendaMesa = lblLegendaMesa;
    nova->lblLegendaValor = lblLegendaValor;
    nova->lblMesa = lblMesa;
    nova->lblValor = lblValor;
    nova->m_left = m_left;
    nova->m_top = m_top;
    nova->m_width = m_width;
    nova->m_height = m_height;
    nova->placeWidget();
    return nova;
}

QColor Mesa::corDoStatus(int status) {
    switch (status) {
    case 0:
        return QColor(0, 192, 0);
    case 1:
        return QColor(255, 0, 0);
    case 2:
        return QColor(255, 143, 61);
    case 3:
        return QColor(192, 192, 192);
    case 4:
        return QColor(255, 128, 255);
    default:
        return QColor(255, 255, 255);
    }
}

void Mesa::setNumero(qint16 value) {
    if (m_numero == value)
        return;
    m_numero = value;
    requestPaint();
}

void Mesa::setStatus(qint16 value) {
    if (m_status == value)
        return;
    m_status = value;
    requestPaint();
}

void Mesa::setValor(const QString& value) {
    if (m_valor == value)
        return;
    m_valor = value;
    requestPaint();
}

void Mesa::setLeft(double value) {
    m_left = value;
    placeWidget();
}
void Mesa::setTop(double value) {
    m_top = value;
    placeWidget();
}
void Mesa::setWidth(double value) {
    m_width = value;
    placeWidget();
}
void Mesa::setHeight(double value) {
    m_height = value;
    placeWidget();
}

void Mesa::placeWidget() {
    setTwipsGeometry(this, m_left, m_top, m_width, m_height);
}

double Mesa::FontSize() const {
    return font().pointSizeF();
}

void Mesa::setFontSize(double points) {
    QFont f = font();
    f.setPointSizeF(points);
    setFont(f);
}

void Mesa::requestPaint() {
    if (m_paintRequested)
        return;
    m_paintRequested = true;
    QMetaObject::invokeMethod(this, &Mesa::paintIfChanged, Qt::QueuedConnection);
}

void Mesa::paintIfChanged() {
    m_paintRequested = false;
    if (m_numero != m_shownNumero || m_status != m_shownStatus || m_valor != m_shownValor)
        update();
}

void Mesa::paintEvent(QPaintEvent*) {
    m_shownNumero = m_numero;
    m_shownStatus = m_status;
    m_shownValor = m_valor;

    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), palette().window());
    const QColor fundo = corDoStatus(m_status);
    p.setPen(fundo.darker(140));
    p.setBrush(fundo);
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);

    // Dark text on the light backgrounds, white on the strong ones.
    p.setPen(fundo.lightness() > 150 ? Qt::black : Qt::white);
    const auto texto = [&](const Rotulo& r, const QString& s, bool negrito) {
        QFont f = font();
        f.setPointSizeF(r.FontSize);
        f.setBold(negrito);
        p.setFont(f);
        p.drawText(QRect(twipsToPixelsX(r.Left), twipsToPixelsY(r.Top), twipsToPixelsX(r.Width),
                         twipsToPixelsY(r.Height)),
                   Qt::AlignCenter, s);
    };
    // valor is the stored value's plain text; the card shows it as money.
    const QString valorTexto = IsNumeric(m_valor) ? FormatCurrency(CDbl(m_valor), 2) : m_valor;
    texto(lblLegendaMesa, QStringLiteral("Mesa"), false);
    texto(lblMesa, Format(m_numero, QStringLiteral("00")), true);
    texto(lblLegendaValor, QStringLiteral("Valor"), false);
    texto(lblValor, valorTexto, true);
}

void Mesa::mousePressEvent(QMouseEvent* event) {
    m_pressed = event->button() == Qt::LeftButton;
}

void Mesa::mouseReleaseEvent(QMouseEvent* event) {
    const bool click =
        m_pressed && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    m_pressed = false;
    if (click)
        emit Click(m_index);
}
