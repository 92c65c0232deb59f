// The ground of what floats above the rest of its window.
#pragma once

#include "Shadow.h"

namespace platform {

/// A plate in the theme's colours with an outline and two shadows.
class FloatingPlate {
public:
    /// A shadow: how far below the plate it falls, how wide it is, how dark on light ground. On
    /// dark ground it is twice as dark.
    struct Drop {
        double offset;
        double sigma;
        double opacity;
    };

    FloatingPlate(double radius, const Drop& near, const Drop& far)
        : radius_(radius)
        , near_ { near, Shadow(radius, near.sigma) }
        , far_ { far, Shadow(radius, far.sigma) }
    {
    }

    void paint(QPainter& painter, const QRectF& plate);

private:
    struct Layer {
        Drop drop;
        Shadow shadow;
    };

    double radius_;
    Layer near_;
    Layer far_;
};

} // namespace platform
