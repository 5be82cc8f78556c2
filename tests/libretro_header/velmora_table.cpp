#include <velmora/libretro.h>

#include "header_table.h"

HeaderTable velmoraHeaderTable() {
#include "fill_table.inc"
}
