import QtQuick 2.14
import QtQuick.Window 2.14
import "qrc:/"
import "qrc:/public.js" as Public

// A main window for pop-ups, which find it by its id `window`. It has the hooks for pop-ups that
// other programs of the product family have.
Window {
    id: window

    property real blur: 0
    property int clicks: 0

    function showBox(info, parent) {
        return Public.showMessageBox(info, parent)
    }

    function notifyPopup(popup, shown) {
        fake.note("notifyPopup " + popup.title + " " + shown)
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
