// val_types.cpp - the table of atom types (name and payload releaser per row),
// the exported type codes of the pointer atoms, and the releasers themselves.
#include "Utils/Model/val_cell.h"
#include "utterance.h"

extern "C" {

UTILS_API void val_delete_utterance(void *payload) {
  delete_utterance(static_cast<utterance *>(payload));
}
UTILS_API void val_delete_features(void *payload) {
  delete_features(static_cast<features *>(payload));
}
// A value never owns these payloads; the rows still name a releaser.
UTILS_API void val_delete_uttfunc(void *) {}
UTILS_API void val_delete_ffunc(void *) {}
UTILS_API void val_delete_relation(void *) {}
UTILS_API void val_delete_item(void *) {}
UTILS_API void val_delete_cart(void *) {}
UTILS_API void val_delete_userdata(void *) {}
UTILS_API void val_delete_itemfunc(void *) {}

// Row n holds the type with code 2n+1.
UTILS_API extern const bsr_val_def bsr_val_defs[BSR_VAL_TYPE_COUNT] = {
    {"int", nullptr},
    {"float", nullptr},
    {"string", nullptr},
    {"wstring", nullptr},
    {"utterance", val_delete_utterance},
    {"uttfunc", val_delete_uttfunc},
    {"ffunc", val_delete_ffunc},
    {"relation", val_delete_relation},
    {"item", val_delete_item},
    {"cart", val_delete_cart},
    {"userdata", val_delete_userdata},
    {"itemfunc", val_delete_itemfunc},
    {"features", val_delete_features},
};

UTILS_API extern const int32_t bsr_val_type_utterance = 9;
UTILS_API extern const int32_t bsr_val_type_uttfunc = 11;
UTILS_API extern const int32_t bsr_val_type_ffunc = 13;
UTILS_API extern const int32_t bsr_val_type_relation = 15;
UTILS_API extern const int32_t bsr_val_type_item = 17;
UTILS_API extern const int32_t bsr_val_type_cart = 19;
UTILS_API extern const int32_t bsr_val_type_userdata = 21;
UTILS_API extern const int32_t bsr_val_type_itemfunc = 23;
UTILS_API extern const int32_t bsr_val_type_features = 25;

}  // extern "C"
