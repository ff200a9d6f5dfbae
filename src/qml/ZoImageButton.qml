import QtQuick 2.6
import QtQuick.Controls 1.4
import QtQuick.Controls.Styles 1.4

// An image button: one image per state, found by name, on an optional background. Give it an
// Accessible.name, since it shows no text. It is no tab stop: both uses are in title bars, where
// Tab and Space would close the window. Alt+F4 and assistive tools can close the window, as in
// native ones.
ZoPushButton {
    id: root

    property string resName: ""
    property color bgColorNormal: "#00000000"
    property color bgColorOnHover: "#00000000"
    property color bgColorOnChecked: "#00000000"
    property color bgColorOnPress: "#00000000"
    property bool ltRadius: false
    property bool rtRadius: false
    property bool lbRadius: false
    property bool rbRadius: false
    property real btnRadius: 0
    property int index: 0
    property bool pressAble: true
    property bool imghcenter: false

    activeFocusOnTab: false

    // In both functions the last state that applies wins.
    function getBgSource() {
        if (resName === "") {
            return ""
        }
        var state = "normal"
        if (hovered) {
            state = "hover"
        }
        if (pressed) {
            state = pressAble ? "press" : "hover"
        }
        if (!enabled) {
            state = "disable"
        }
        return "qrc:/" + resName + "_" + state + ".png"
    }

    function getBgColor() {
        var color = bgColorNormal
        if (hovered) {
            color = bgColorOnHover
        }
        if (pressed) {
            color = bgColorOnPress
        }
        if (checked) {
            color = bgColorOnChecked
        }
        return color
    }

    style: ButtonStyle {
        padding {
            left: 0
            top: 0
            right: 0
            bottom: 0
        }
        label: null
        background: Rectangle {
            id: ground
            objectName: "buttonBackground"

            color: root.getBgColor()
            radius: root.btnRadius
            border.width: 0

            Component.onCompleted: {
                if (root.width < image.width) {
                    root.width = image.width
                }
                if (root.height < image.height) {
                    root.height = image.height
                }
            }

            // Each visible square makes its corner sharp again.
            Repeater {
                model: [!root.ltRadius, !root.rtRadius, !root.lbRadius, !root.rbRadius]
                Rectangle {
                    objectName: "squareCorner"
                    x: index % 2 === 0 ? 0 : ground.width - width
                    y: index < 2 ? 0 : ground.height - height
                    width: root.btnRadius
                    height: root.btnRadius
                    color: ground.color
                    visible: modelData
                }
            }

            Image {
                id: image
                objectName: "buttonImage"
                anchors.verticalCenter: parent.verticalCenter
                anchors.horizontalCenter: root.imghcenter ? parent.horizontalCenter : undefined
                source: root.getBgSource()
                width: source == "" ? 0 : implicitWidth
            }
        }
    }
}
