import QtQuick 2.14
import QtQuick.Window 2.14
import "qrc:/"
import "qrc:/public.js" as Public

// Stands in for the main window towards pop-ups: they look for it by its id `window`.
Window {
    id: window

    property int clicks: 0

    // The boxes' caller; returns when the box has gone.
    function showBox(info, parent) {
        return Public.showMessageBox(info, parent)
    }

    function makePopup(properties) {
        return popup.createObject(window, properties || {})
    }

    property Component popup: Component {
        ZoPopWindow {
            onButtonClicked: fake.note("buttonClicked " + index)
            onCloseClicked: fake.note("closeClicked")
            Component.onDestruction: fake.note("destroyed")
        }
    }

    x: 60
    y: 40
    width: 640
    height: 408
    visible: true

    MouseArea {
        anchors.fill: parent
        onClicked: ++window.clicks
    }
}
