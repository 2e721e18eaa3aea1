#pragma once

#include "platform/DataGrid.h"
#include "platform/Form.h"

class DataControl;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

// The shape the two pickers share: a filter, a grid bound to a data control's recordset of one
// outside table, "&Confirmar" and "&Sair" (which Escape presses). The whole table stays on the
// client and the filter works there.
class Frm_Consulta : public Form {
    Q_OBJECT

public:
    QGroupBox* Frame_filtros;
    QLabel* Lbl_legenda_filtros;
    QLineEdit* Text_filtro;
    QGroupBox* Frame_controles;
    QPushButton* Cmd_confirmar;
    QPushButton* Cmd_sair;

    virtual void Cmd_confirmar_Click() = 0;
    void Cmd_sair_Click();

protected:
    // The grid and the data control are made here under the names given, owned by the screen.
    Frm_Consulta(const char* nome, const QString& titulo, const QString& legenda, const char* nomeDaGrade,
                 const char* nomeDoAdo, const QString& fonte, const QList<DataGrid::Column>& colunas);

    void Form_Load() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;

    DataGrid* m_grade;
    DataControl* m_ado;

private:
    QString m_fonte;
};
