#pragma once

#include "platform/Form.h"

#include <QIcon>
#include <QList>

class DataControl;
class QAction;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QSpinBox;
class QTreeWidget;
class QTreeWidgetItem;

// The work screen of one table, given its tab through comandaAtual: the header, the items, the
// code and quantity entry and the action strip. While it is open the tab is in edition (2) on
// every terminal; "Enviar", "Conferência" and "Cancelar" are the only ways out.
class Frm_Mesa : public Form {
    Q_OBJECT

public:
    Frm_Mesa();
    ~Frm_Mesa() override;
    static Frm_Mesa& instance() { return defaultInstance<Frm_Mesa>(); }

    QLabel* Label_Mesa;
    QGroupBox* Frame_Mesa;
    QLineEdit* Text_Atendente;
    QLabel* Label_Atendente;
    QLineEdit* Text_Cliente;
    QLabel* Label_Cliente;
    QLineEdit* Text_Identificacao;
    QLabel* Label_Identificacao;
    QLineEdit* Text_Ocupantes;
    QLabel* Label_Ocupantes;
    QSpinBox* UpDown_Ocupantes;
    QLineEdit* Text_Tempo;
    QLabel* Label_Tempo;
    QCheckBox* Chk_Servico;
    QLabel* Label_Servico;
    QLabel* Label_Produtos;
    QLabel* Label_Legenda_Produtos;
    QLabel* Label_Total;
    QLabel* Label_Leganda_Total;
    QLineEdit* Text_Codigo;
    QLabel* Label_Codigo;
    QLineEdit* Text_Quantidade;
    QLabel* Label_Quantidade;
    QTreeWidget* List_Itens;
    // Image 1 "Item já foi impresso", image 2 "Item pendente impressão ou reimpressão solicitada".
    QList<QIcon> ImageListItens;
    QTreeWidget* List_Menu;
    QList<QIcon> ImageListMenu;
    DataControl* Ado_itens;
    QMenu* mnu_mesa;
    QAction* mnu_mesa_detalhe;
    QAction* mnu_mesa_observacao;
    QAction* mnu_mesa_excluir;
    QAction* mnu_mesa_reimpressao;
    QAction* mnu_mesa_transferir;

    void mesaBloqueada();
    void mesaLiberada();

    // The action strip: the header is written first, whatever the entry.
    void List_Menu_ItemClick(QTreeWidgetItem* Item);
    // The entry of the strip by its key ("Enviar"); nullptr when the layout has none.
    QTreeWidgetItem* entradaDoMenu(const QString& chave) const;

    void mnu_mesa_detalhe_Click();
    void mnu_mesa_observacao_Click();
    void mnu_mesa_excluir_Click();
    void mnu_mesa_reimpressao_Click();
    void mnu_mesa_transferir_Click();

    // The three totals of comandaAtual as they stand, "#0.00".
    void exibirTotais();

    // List_Itens as the original's list view: the first selected row (nullptr for none), a row by
    // its tag, a row's tag and small icon.
    QTreeWidgetItem* SelectedItem() const;
    QTreeWidgetItem* FindItem(const QString& tag) const;
    static QString Tag(const QTreeWidgetItem* item);
    static int SmallIcon(const QTreeWidgetItem* item);
    void setSmallIcon(QTreeWidgetItem* item, int icon);

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void List_Menu_GotFocus();
    void List_Menu_KeyDown(int& KeyCode, int Shift);
    void Chk_Servico_Click();
    void Chk_Servico_MouseDown(int Button, int Shift, double X, double Y);
    void Text_Identificacao_KeyPress(int& KeyAscii);
    void Text_Codigo_GotFocus();
    void Text_Codigo_KeyPress(int& KeyAscii);
    void Text_Quantidade_GotFocus();
    void Text_Quantidade_KeyUp(int& KeyCode, int Shift);
    void List_Itens_KeyDown(int& KeyCode, int Shift);
    void List_Itens_MouseDown(int Button, int Shift, double X, double Y);

    // The seven controls enabled or not, and the strip rebuilt from nothing in the layout.
    void montarMenu(bool bloqueada);
    void acao(const QString& chave);
    // A digit typed on a list starts a new code.
    void comecarCodigo(int KeyCode);

    bool m_selecionarAoSoltar = false;
};

// Strikes a control's caption through, or takes the strike off.
void riscar(QWidget* w, bool riscado);

// The marks of the item list: impresso for an item that went to its printer, otherwise one waiting
// for it (or for a reprint). The help sheet shows them too.
QIcon marcaDoItem(bool impresso);
