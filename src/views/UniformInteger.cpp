#include "views/UniformInteger.h"

#include <QRandomGenerator>

namespace hmatnik {

UniformInteger systemUniformInteger()
{
    return [](int bound) {
        return QRandomGenerator::system()->bounded(bound);
    };
}

} // namespace hmatnik
