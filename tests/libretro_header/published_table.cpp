#include <libretro.h>

#include "header_table.h"

HeaderTable publishedHeaderTable() {
#include "fill_table.inc"
}
