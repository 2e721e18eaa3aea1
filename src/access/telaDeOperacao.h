#pragma once

#include <QStyle>

class Form;
class QHBoxLayout;
class QLabel;

// What the small operation screens (settings, help) share: a dialog window with a title bar and a
// close box, keys seen by the screen first, the screens' type, and a heading of a picture (Image1)
// with the operation's name in large bold type beside it (Label_Operacao). Gives the heading's row.
QHBoxLayout* montarTelaDeOperacao(Form& tela, const char* nome, const QString& operacao,
                                  QStyle::StandardPixmap figura, QLabel*& Label_Operacao, QLabel*& Image1);
