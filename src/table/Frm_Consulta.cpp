#include "table/Frm_Consulta.h"

#include "platform/Application.h"
#include "platform/DataControl.h"
#include "startup/variaveisGlobais.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

Frm_Consulta::Frm_Consulta(const char* nome, const QString& titulo, const QString& legenda,
                           const char* nomeDaGrade, const char* nomeDoAdo, const QString& fonte,
                           const QList<DataGrid::Column>& colunas)
    : m_grade(new DataGrid(this)), m_ado(new DataControl(QLatin1String(nomeDoAdo), this)), m_fonte(fonte) {
    m_grade->setObjectName(QLatin1String(nomeDaGrade));
    DataGrid* grade = m_grade;
    setObjectName(QLatin1String(nome));
    setWindowTitle(titulo);
    KeyPreview = true;
    const auto nomear = [](QWidget* w, const char* n) { w->setObjectName(QLatin1String(n)); };

    Frame_filtros = new QGroupBox(QStringLiteral("Filtros"), this);
    nomear(Frame_filtros, "Frame_filtros");
    Lbl_legenda_filtros = new QLabel(legenda, Frame_filtros);
    nomear(Lbl_legenda_filtros, "Lbl_legenda_filtros");
    Text_filtro = new QLineEdit(Frame_filtros);
    nomear(Text_filtro, "Text_filtro");
    auto* filtros = new QVBoxLayout(Frame_filtros);
    filtros->addWidget(Lbl_legenda_filtros);
    filtros->addWidget(Text_filtro);

    Frame_controles = new QGroupBox(QStringLiteral("Controles"), this);
    nomear(Frame_controles, "Frame_controles");
    Cmd_confirmar = new QPushButton(QStringLiteral("&Confirmar"), Frame_controles);
    nomear(Cmd_confirmar, "Cmd_confirmar");
    Cmd_sair = new QPushButton(QStringLiteral("&Sair"), Frame_controles);
    nomear(Cmd_sair, "Cmd_sair");
    CancelButton = Cmd_sair;
    auto* controles = new QHBoxLayout(Frame_controles);
    controles->addWidget(Cmd_confirmar);
    controles->addWidget(Cmd_sair);
    connect(Cmd_confirmar, &QPushButton::clicked, this, guarded([this] { Cmd_confirmar_Click(); }));
    connect(Cmd_sair, &QPushButton::clicked, this, guarded([this] { Cmd_sair_Click(); }));

    grade->setColumns(colunas);
    connect(grade, &DataGrid::DblClick, this, guarded([this] { Cmd_confirmar_Click(); }));

    auto* topo = new QHBoxLayout;
    topo->addWidget(Frame_filtros, 1);
    topo->addWidget(Frame_controles);
    auto* tela = new QVBoxLayout(this);
    tela->addLayout(topo);
    tela->addWidget(grade, 1);
    resize(760, 480);
    centerOnScreen();
    setTabOrder(Text_filtro, grade);
    Text_filtro->setFocus();
}

void Frm_Consulta::Form_Load() {
    m_ado->ConnectionString = conexaoLocal;
    m_ado->RecordSource = m_fonte;
    m_ado->Refresh();
    m_grade->setDataSource(m_ado->Recordset());
    m_grade->removeSelBookmark();
    m_grade->addCurrentBookmark();
}

// The filter stays in use until the arrow takes the user into the rows.
void Frm_Consulta::Form_KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == 40) {
        m_grade->removeSelBookmark();
        m_grade->setFocus();
    } else if (KeyCode == 13) {
        Cmd_confirmar_Click();
    }
}

void Frm_Consulta::Cmd_sair_Click() {
    Unload();
}
