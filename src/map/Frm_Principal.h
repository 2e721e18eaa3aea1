#pragma once

#include "platform/Form.h"

#include <QList>
#include <array>

class DataControl;
class Mesa;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QTimer;
class QTreeWidget;
class QTreeWidgetItem;
class SmoothScrollBar;

// The map of the tables: one card per table, refreshed from the tab store every second, and the
// ways to reach a table, filter the map, transfer, adjust the settings and leave.
class Frm_Principal : public Form {
    Q_OBJECT

public:
    Frm_Principal();
    ~Frm_Principal() override;
    static Frm_Principal& instance() { return defaultInstance<Frm_Principal>(); }

    QLineEdit* Text_mesa;
    QLabel* Lbl_acesso_rapido;
    QGroupBox* Frame_Filtros;
    // The legend's swatches, by state code; 5 is "Todas".
    std::array<QFrame*, 6> Frame;
    QLabel* Label_Todas;
    QLabel* Label_Disponivel;
    QLabel* Label_Ocupada;
    QLabel* Label_Edicao;
    QLabel* Label_Conferencia;
    QLabel* Label_Ociosa;
    QTreeWidget* List_Menu;
    // card[i] is table i + 1.
    QList<Mesa*> card;
    SmoothScrollBar* scrollBar;
    QTimer* Timer;

    DataControl* Ado_Refresh; // the map's refresh only
    DataControl* Ado_Mesas;   // the open tab (Comanda)
    DataControl* Ado_Geral;   // the filter and the shared lookups

    void montaMesas(qint16 quantidade);
    void mesasRefresh();
    void Timer_Timer();
    void scrollBar_Change();

    void Ado_Geral_Error(int ErrorNumber, bool& fCancelDisplay);

protected:
    void Form_Load() override;
    void Form_Activate() override;

private:
    void setLegenda(QLabel* label, const QString& caption);

    qint16 scrollAnterior = 0;
};

// Scales every control of a screen from the design display to this one, once.
void ajustaTela(QWidget& tela);
