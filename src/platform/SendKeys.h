#pragma once

#include <QString>

// The original's SendKeys: queues keystrokes as if typed, for whatever control has the focus when
// they come round. Understands plain characters and "{backspace}".
void SendKeys(const QString& keys);
