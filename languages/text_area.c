#include "languages/text_area.h"

// It stands in a source of its own, so that no compiler can take its emptiness for granted elsewhere.
const TextArea kTextArea = {
    .magic = {'K', 'e', 's', 't', 'r', 'e', 'l', 'm', 'o', 'o', 'r', 'T', 'e', 'x', 't', 's'},
    .capacity = kTextAreaSize,
};
