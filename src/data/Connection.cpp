#include "data/Connection.h"
