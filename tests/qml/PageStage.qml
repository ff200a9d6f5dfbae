import QtQuick 2.14

// What a page finds round it in the program, by the same ids: the home page to switch on, the content
// area that it fills, and the window.
Item {
    id: window

    property alias frame: frameRect

    // Creates a page in the content area, with the size that it has in the window.
    function make(name, properties) {
        var component = Qt.createComponent("qrc:/" + name + ".qml", Component.PreferSynchronous,
                                           frameRect)
        if (component.status !== Component.Ready) {
            console.warn(component.errorString())
        }
        var all = { width: frameRect.width, height: frameRect.height }
        for (var key in properties || {}) {
            all[key] = properties[key]
        }
        return component.createObject(frameRect, all)
    }

    width: 640
    height: 400

    Item {
        id: home

        function switchPage(funIndex) {
            fake.note("switchPage " + funIndex)
        }

        x: 32
        y: 20
        width: 576
        height: 300

        Item {
            id: frameRect
            width: 576
            height: 191
        }
    }
}
