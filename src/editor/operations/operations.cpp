#include "editor/operations/operation.h"

// Each has a file of its own.
const Operation& scaling();
const Operation& cropping();
const Operation& rotating();
const Operation& flippingSideways();
const Operation& flippingUpsideDown();

const std::vector<const Operation*>& operations() {
    static const std::vector<const Operation*> all{&scaling(), &cropping(), &rotating(), &flippingSideways(),
                                                   &flippingUpsideDown()};
    return all;
}
