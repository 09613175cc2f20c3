#include "data/RunTimeError.h"
