#pragma once

#include <QString>
#include <QWidget>
#include <array>

// The table card of the map. It paints itself from numero, status and valor in the legend's
// colours. Place, size and the four texts' fonts and places are kept in twips and points, as the
// screen scaling multiplies them in place; the widget follows them in pixels.
class Mesa : public QWidget {
    Q_OBJECT

public:
    // A card of the array: index is its place in the array.
    Mesa(QWidget* parent, int index);

    // Loads a new card of the array from this one: same size, fonts and texts' places, hidden.
    Mesa* carregarNova(int index) const;

    int Index() const { return m_index; }

    // The background of a state code; the legend uses the same colours.
    static QColor corDoStatus(int status);

    qint16 numero() const { return m_numero; }
    void setNumero(qint16 value);
    qint16 status() const { return m_status; }
    void setStatus(qint16 value);
    QString valor() const { return m_valor; }
    void setValor(const QString& value);

    // Container properties, in twips.
    double Left() const { return m_left; }
    double Top() const { return m_top; }
    double Width() const { return m_width; }
    double Height() const { return m_height; }
    void setLeft(double value);
    void setTop(double value);
    void setWidth(double value);
    void setHeight(double value);

    double FontSize() const;
    void setFontSize(double points);

    // The four texts of the card: the caption of the table number, the caption of the value, the
    // table number and the value; fonts in points, places in twips inside the card. Call update()
    // after changing them.
    struct Rotulo {
        double FontSize, Left, Top, Width, Height;
    };
    Rotulo lblLegendaMesa{8, 60, 45, 1215, 255};
    Rotulo lblLegendaValor{8, 60, 780, 1215, 195};
    Rotulo lblMesa{20, 60, 270, 1215, 510};
    Rotulo lblValor{10, 60, 960, 1215, 225};
    std::array<Rotulo*, 4> rotulos() { return {&lblLegendaMesa, &lblLegendaValor, &lblMesa, &lblValor}; }

signals:
    void Click(int Index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void placeWidget();
    // A tick writes every card twice; paint only when what shows has changed by the time the
    // event loop comes round.
    void requestPaint();
    void paintIfChanged();

    int m_index;
    qint16 m_numero = 0;
    qint16 m_status = 0;
    QString m_valor = QStringLiteral("0");
    double m_left = 0, m_top = 0, m_width = 0, m_height = 0;

    bool m_paintRequested = false;
    qint16 m_shownNumero = -1;
    qint16 m_shownStatus = -1;
    QString m_shownValor;
    bool m_pressed = false;
};
