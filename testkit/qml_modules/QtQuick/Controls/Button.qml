import QtQuick 2.14

// A push button of Qt Quick Controls 1, as far as the interface uses one.
FocusScope {
    id: root

    property string text: ""
    property bool checkable: false
    property bool checked: false
    property bool activeFocusOnPress: false
    property Component style: null
    readonly property bool hovered: area.containsMouse
    readonly property bool pressed: area.heldInside || keyHeld
    property bool keyHeld: false

    signal clicked()

    function accessiblePressAction() {
        clicked()
    }

    activeFocusOnTab: true
    implicitWidth: face.item ? face.item.implicitWidth : 0
    implicitHeight: face.item ? face.item.implicitHeight : 0

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: accessiblePressAction()

    Keys.onPressed: {
        if (event.key === Qt.Key_Space && !event.isAutoRepeat) {
            event.accepted = true
            keyHeld = true
        }
    }
    Keys.onReleased: {
        if (event.key === Qt.Key_Space && !event.isAutoRepeat && keyHeld) {
            event.accepted = true
            keyHeld = false
            clicked()
        }
    }
    onFocusChanged: keyHeld = keyHeld && focus

    Loader {
        id: styleLoader
        sourceComponent: root.style
        onLoaded: item.control = root
    }

    Loader {
        id: face
        anchors.fill: parent
        sourceComponent: styleLoader.item ? styleLoader.item.background : null
    }

    Loader {
        anchors.fill: parent
        anchors.leftMargin: styleLoader.item ? styleLoader.item.padding.left : 0
        anchors.topMargin: styleLoader.item ? styleLoader.item.padding.top : 0
        anchors.rightMargin: styleLoader.item ? styleLoader.item.padding.right : 0
        anchors.bottomMargin: styleLoader.item ? styleLoader.item.padding.bottom : 0
        sourceComponent: styleLoader.item ? styleLoader.item.label : null
    }

    MouseArea {
        id: area

        readonly property bool heldInside: pressed && containsMouse

        anchors.fill: parent
        hoverEnabled: true
        onPressed: {
            if (root.activeFocusOnPress) {
                root.forceActiveFocus()
            }
        }
        onClicked: root.clicked()
    }
}
