import QtQuick
import QtQuick.Shapes
import Ovrin

/* Something runs. Stands still, three quarters of a ring, where the system asks for reduced motion. */
Item {
    id: spinner

    property bool running: visible
    readonly property real thickness: 2

    implicitWidth: Theme.symbolSmall
    implicitHeight: Theme.symbolSmall
    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("In progress")

    Shape {
        anchors.fill: parent
        ShapePath {
            strokeColor: Theme.line
            strokeWidth: spinner.thickness
            fillColor: "transparent"
            PathAngleArc {
                centerX: spinner.width / 2; centerY: spinner.height / 2
                radiusX: (spinner.width - spinner.thickness) / 2; radiusY: radiusX
                startAngle: 0; sweepAngle: 360
            }
        }
        ShapePath {
            strokeColor: Theme.accent
            strokeWidth: spinner.thickness
            fillColor: "transparent"
            capStyle: ShapePath.RoundCap
            PathAngleArc {
                centerX: spinner.width / 2; centerY: spinner.height / 2
                radiusX: (spinner.width - spinner.thickness) / 2; radiusY: radiusX
                startAngle: -90; sweepAngle: Theme.reducedMotion ? 270 : 100
            }
        }
        RotationAnimation on rotation {
            running: spinner.running && spinner.visible && !Theme.reducedMotion
            from: 0; to: 360
            duration: Theme.turn
            loops: Animation.Infinite
        }
    }
}
