import QtQuick 2.12
import QtQuick.Shapes 1.14

// Fills a rounded rectangle with a horizontal gradient, smooth at its round corners at every scale:
// the software renderer leaves them jagged when the rectangle has the gradient itself.
Shape {
    id: root

    property real radius: 0
    property color startColor: "#00000000"
    property color endColor: "#00000000"

    ShapePath {
        strokeWidth: -1
        startX: root.radius
        startY: 0
        fillGradient: LinearGradient {
            x1: 0
            x2: root.width
            GradientStop {
                position: 0.0
                color: root.startColor
            }
            GradientStop {
                position: 1.0
                color: root.endColor
            }
        }

        PathLine { x: root.width - root.radius; y: 0 }
        PathArc { x: root.width; y: root.radius; radiusX: root.radius; radiusY: root.radius }
        PathLine { x: root.width; y: root.height - root.radius }
        PathArc {
            x: root.width - root.radius
            y: root.height
            radiusX: root.radius
            radiusY: root.radius
        }
        PathLine { x: root.radius; y: root.height }
        PathArc { x: 0; y: root.height - root.radius; radiusX: root.radius; radiusY: root.radius }
        PathLine { x: 0; y: root.radius }
        PathArc { x: root.radius; y: 0; radiusX: root.radius; radiusY: root.radius }
    }
}
