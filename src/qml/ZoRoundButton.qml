import QtQuick 2.14
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4
import "."
import "public.js" as Public

// A rounded push button that takes its colours from a table of states (public.js) and grows with
// its text.
ZoPushButton {
    id: root

    property var properties: Public.nrpInfo
    property int fontPixcelSize: 14
    property Gradient bgGradient: null
    property color bgBorderColor: hasBorder ? stateColor(properties.borderColor) : "#00000000"
    property int bgBorderWidth: hasBorder ? properties.borderWidth : 0
    property color bgColor: stateColor(properties.bgColor)
    property real bgOpacity: enabledOr(properties.bgColor ? properties.bgColor.opacity : undefined,
                                       1.0)
    property real bgRadius: properties.bgRadius !== undefined ? properties.bgRadius : 6
    property bool semiBold: false
    property real rp: 0
    property real lp: 0
    property bool staticButton: false

    // ZoRoundButtonLegacy binds this to its own property.
    property color labelColor: enabledOr(properties.textColor, "#000000")

    readonly property bool hasBorder: properties.borderWidth !== undefined

    function stateColor(c) {
        if (!c) {
            return "#00000000"
        }
        if (!enabled) {
            return c.disabled
        }
        return pressed ? c.pressed : hovered ? c.hovered : c.normal
    }

    function enabledValue(c) {
        if (!c) {
            return undefined
        }
        if (!enabled) {
            return normalOf(c.disabled)
        }
        if (c.enabled.pressed !== undefined && pressed) {
            return c.enabled.pressed
        }
        if (c.enabled.hovered !== undefined && hovered) {
            return c.enabled.hovered
        }
        return normalOf(c.enabled)
    }

    // The value itself, or its `normal` where it is split by state.
    function normalOf(value) {
        return value && value.normal !== undefined ? value.normal : value
    }

    function enabledOr(c, fallback) {
        var value = enabledValue(c)
        return value !== undefined ? value : fallback
    }

    function reCalcWidth() {
        width = Math.max(metrics.boundingRect.width + 2 * 4 + rp + lp, implicitWidth)
    }

    // Return and Enter click as Space does.
    function enterPressed(event) {
        if (!event.isAutoRepeat) {
            clicked()
        }
    }

    implicitWidth: 100
    height: 28

    Keys.onReturnPressed: enterPressed(event)
    Keys.onEnterPressed: enterPressed(event)

    onWidthChanged: reCalcWidth()
    onImplicitWidthChanged: reCalcWidth()
    Component.onCompleted: reCalcWidth()

    style: ButtonStyle {
        background: Rectangle {
            objectName: "buttonBackground"
            radius: root.bgRadius
            opacity: root.bgOpacity
            border.color: root.bgBorderColor
            border.width: root.bgBorderWidth
            color: root.bgColor
            gradient: root.bgGradient
        }
        label: Text {
            objectName: "buttonLabel"
            text: root.text
            textFormat: Text.PlainText
            color: root.labelColor
            font: metrics.font
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            leftPadding: root.lp
            rightPadding: root.rp
        }
    }

    TextMetrics {
        id: metrics
        text: root.text
        font.pixelSize: root.fontPixcelSize
        font.weight: root.semiBold ? Font.Medium : Font.Normal
        // Not on the button's text, which changes before the metrics do.
        onMetricsChanged: root.reCalcWidth()
    }

    // Only sets the cursor: with hoverEnabled it would take the hover away from the button.
    MouseArea {
        objectName: "cursorArea"
        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        cursorShape: root.staticButton ? Qt.ArrowCursor : Qt.PointingHandCursor
    }

    ZoFocusFrame {
        anchors.fill: parent
        anchors.margins: 2
        radius: Math.max(0, root.bgRadius - 1)
        border.color: root.labelColor
        visible: root.activeFocus
    }
}
