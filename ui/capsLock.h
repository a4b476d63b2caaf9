#pragma once

/** Whether Caps Lock is on; false where that cannot be told. */
bool isCapsLockOn();
