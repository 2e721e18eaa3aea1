#pragma once

#include "platform/Form.h"

#include <functional>

#include <QList>
#include <array>

class DataControl;
class Mesa;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;
class SmoothScrollBar;
class Timer;

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
    ::Timer* Timer;

    DataControl* Ado_Refresh; // the map's refresh only
    DataControl* Ado_Mesas;   // the open tab (Comanda)
    DataControl* Ado_Geral;   // the filter and the shared lookups

    void montaMesas(qint16 quantidade);
    void mesasRefresh();
    void Timer_Timer();
    void scrollBar_Change();

    void List_Menu_ItemClick(int item);
    void Frame_Click(int Index);
    void filtroMesas(int Index);
    void card_Click(qint16 Index);
    void validacoes(qint16 Index, bool& resultado);
    void transferirMesa();
    void opcaoProtegida(const bool& direito, const std::function<void()>& abrir);
    void Ado_Geral_Error(int ErrorNumber, bool& fCancelDisplay);

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void List_Menu_GotFocus();
    void Text_mesa_GotFocus();
    void Text_mesa_KeyPress(int& KeyAscii);
    void Text_mesa_KeyUp(int& KeyCode, int Shift);
    void Text_mesa_LostFocus();
    // "0000" in the quick access field, and the focus to it.
    void limparAcessoRapido();
    void setLegenda(QLabel* label, const QString& caption);

    qint16 scrollAnterior = 0;
};

// Scales every control of a screen from the design display to this one, once.
void ajustaTela(QWidget& tela);
