#include "frame/modGeneral.h"
