#include "frame/MsgBox.h"
