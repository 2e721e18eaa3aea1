#pragma once

#include "platform/Form.h"

// The work screen of one table, given its tab through comandaAtual.
class Frm_Mesa : public Form {
    Q_OBJECT

public:
    Frm_Mesa();
    static Frm_Mesa& instance() { return defaultInstance<Frm_Mesa>(); }

protected:
    void Form_Load() override;
    void Form_KeyDown(int& KeyCode, int Shift) override;
};
