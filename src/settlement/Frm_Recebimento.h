#pragma once

#include "platform/Form.h"

#include <QIcon>
#include <QList>

class DataControl;
class DataGrid;
class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QPushButton;

// The payments of comandaAtual, in five tenders, against the value of its tab. Each confirmation
// stands in the store at once; the screen changes nothing on the tab itself, and a tab paid in
// full stays open for the back office to close.
class Frm_Recebimento : public Form {
    Q_OBJECT

public:
    Frm_Recebimento();
    ~Frm_Recebimento() override;
    static Frm_Recebimento& instance() { return defaultInstance<Frm_Recebimento>(); }

    QListWidget* List_Finalizadoras;
    // Images 1 to 5: cash, others, credit, debit, PIX.
    QList<QIcon> ImageListFinalizadoras;
    DataGrid* Dtg_Recebimentos;
    DataControl* Ado_Recebimento;
    QLineEdit* Text_Valor;
    QPushButton* Cmd_Gravar;
    QLabel* Label_Finalizadora;
    QLabel* Label_Legendas;
    QLabel* Label_SubTotal;
    QLabel* Label_Valor_Subtotal;
    QLabel* Label_Pago;
    QLabel* Label_Valor_Pago;
    QLabel* Label_Aberto;
    QLabel* Label_Valor_Aberto;
    QLabel* Label_Troco;
    QLabel* Label_Valor_Troco;
    QMenu* mnu_recebimentos;
    QAction* mnu_recebimentos_excluir;

    void Cmd_Gravar_Click();
    void List_Finalizadoras_ItemClick(QListWidgetItem* Item);
    void List_Finalizadoras_MouseUp(int Button, int Shift, double X, double Y);
    void mnu_recebimentos_excluir_Click();
    // Reads what was paid and what the tab is worth, and shows the totals and the payments.
    void calculaTotais();

    // The list view's dimmed drawing: only the chosen tender stands out.
    static bool Ghosted(const QListWidgetItem* item);
    void setGhosted(QListWidgetItem* item, bool ghosted);

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Text_Valor_GotFocus();
    void Text_Valor_KeyUp(int& KeyCode, int Shift);
    // The grid's menu, at the pointer wherever the request came from.
    void Dtg_Recebimentos_ContextMenu(const QPoint& Ignorado);

    void gravarRecebimento(qint16 idComanda, const QString& finalizadora, double valor,
                           const QString& observacao);
    void excluirRecebimento();
    // What a limited tender may take of valor, as the number's text: what is left open when valor
    // would pass the tab's value, else valor itself.
    QString valorLimiteFinalizadora(double valor) const;
    // The statement's text for this tab, with its id in place of %1.
    static QString daComanda(const char* sql);

    // Set only by calculaTotais.
    double valorPago = 0;
    double valorConta = 0;
    double valorAberto = 0;
    double valorTroco = 0;
};
