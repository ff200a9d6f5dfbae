import QtQuick 2.14
import QtQuick.Controls 2.14
import QtQuick.Shapes 1.14
import "."
import "public.js" as Public

// A radio button with a thin ring that becomes a thick one when checked.
RadioButton {
    id: control

    property color textColor: Public.pageTextColor
    property int fontSize: 14

    hoverEnabled: true

    Accessible.role: Accessible.RadioButton
    Accessible.name: text

    Accessible.onPressAction: choose()
    Accessible.onToggleAction: choose()

    // Space is built in; Return chooses, too. As in native groups, the arrow keys move the focus;
    // they do not choose, since choosing leaves the page at once.
    Keys.onReturnPressed: enterPressed(event)
    Keys.onEnterPressed: enterPressed(event)
    Keys.onUpPressed: event.accepted = focusNeighbour(false)
    Keys.onDownPressed: event.accepted = focusNeighbour(true)

    function choose() {
        if (!checked) {
            checked = true
            toggled()
        }
    }

    function enterPressed(event) {
        if (!event.isAutoRepeat) {
            choose()
            clicked()
        }
    }

    // The next button of the group; does not wrap around.
    function focusNeighbour(forward) {
        var buttons = ButtonGroup.group ? ButtonGroup.group.buttons : []
        for (var i = 0; i < buttons.length; ++i) {
            var next = buttons[i + (forward ? 1 : -1)]
            if (buttons[i] === control && next) {
                next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason)
                return true
            }
        }
        return false
    }

    // A path, since the software renderer draws the border of a round Rectangle open or oval at
    // scales such as 1.25 and 1.5.
    indicator: Shape {
        implicitWidth: 14
        implicitHeight: 14
        x: control.leftPadding
        // On a whole pixel, or the ring would be drawn blurred.
        y: Math.round((control.height - height) / 2)

        ShapePath {
            id: ring
            strokeColor: control.hovered || control.checked ? "#0079ff" : "#9aa6b3"
            strokeWidth: control.checked ? 4 : 1

            PathAngleArc {
                centerX: 7
                centerY: 7
                radiusX: 7 - ring.strokeWidth / 2
                radiusY: radiusX
                sweepAngle: 360
            }
        }
    }

    // The control stretches its content item, so the label has its own width inside of it.
    contentItem: Item {
        implicitWidth: label.implicitWidth
        implicitHeight: label.implicitHeight

        Text {
            id: label
            objectName: "radioLabel"
            anchors.verticalCenter: parent.verticalCenter
            width: control.width - leftPadding
            // A right-to-left text would otherwise be aligned at the right.
            horizontalAlignment: Text.AlignLeft
            leftPadding: control.indicator.width + 8
            text: control.text
            textFormat: Text.PlainText
            font.pixelSize: control.fontSize
            color: control.textColor
            opacity: control.enabled ? 1.0 : 0.3
        }

        ZoFocusFrame {
            x: label.leftPadding - 4
            // The control's padding makes the content item shorter than a line of text.
            y: -control.topPadding
            width: label.contentWidth + 8
            height: control.height
            visible: control.visualFocus
        }
    }
}
