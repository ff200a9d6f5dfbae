import QtQuick 2.14
import QtTest 1.15

// The base of all tests: opens the real window, brings controls into states, reads the queries.
TestCase {
    id: test

    // The keys that activate a control, as rows of a test.
    readonly property var keys: [
        { tag: "Space", key: Qt.Key_Space }, { tag: "Return", key: Qt.Key_Return },
        { tag: "Enter", key: Qt.Key_Enter }
    ]

    property var main: null
    property var insideBox: null
    property var problem: null

    when: windowShown
    visible: true
    width: 640
    height: 400

    // Runs `insideBox` in the nested event loop of a message box, once the box is active.
    Timer {
        id: boxWatch
        interval: 5
        repeat: true
        onTriggered: {
            var box = probe.popups()[0]
            if (box && box.active && box.contentItem.width === box.width) {
                stop()
                guard.start()
                try {
                    test.insideBox(box)
                } catch (error) {
                    test.problem = error
                    box.close()
                }
            }
        }
    }

    // Ends a wait that would otherwise last until the time limit of the whole file.
    Timer {
        id: guard
        interval: 20000
        onTriggered: {
            test.problem = new Error("the wait continues after the box has closed")
            uninstallMgr.popMsgBox(false)
        }
    }

    // Test files override it: it runs before each test.
    function prepare() {}

    function init() {
        leavePointer()
        fake.reset()
        problem = null
        prepare()
    }

    function cleanup() {
        boxWatch.stop()
        guard.stop()
        languages.switchBack()
        probe.popups().forEach((popup) => popup.close())
        wait(0)
        closeMain()
    }

    // Opens the real window, with the reasons in this order if one is given.
    function openMain(reasons) {
        var component = Qt.createComponent("qrc:/Main.qml")
        main = component.createObject(null)
        verify(main, component.errorString())
        tryVerify(function() { return main.active && main.contentItem.width === main.width })
        if (reasons) {
            part("reasonList").model = reasons
            part("reasonColumn").forceLayout()
        }
    }

    function closeMain() {
        if (main !== null) {
            remove(main)
            main = null
        }
    }

    // Finds an item of the window, or of one of its pages.
    function part(name, page) {
        return findChild(page ? findChild(main.contentItem, page) : main.contentItem, name)
    }

    // Calls `open`, which shows a message box, and `act` while it waits; `act` must close the box.
    function withBox(open, act) {
        insideBox = act
        boxWatch.start()
        var result = open()
        guard.stop()
        if (problem) {
            throw problem
        }
        compare(probe.popups().length, 0)
        return result
    }

    // Destroys a window and waits for it: if the garbage collector came first, all its bindings
    // would cause warnings.
    function remove(object) {
        object.destroy()
        wait(0)
    }

    // Every item below `item` whose objectName matches, in drawing order.
    function named(item, pattern) {
        var found = []
        for (var i = 0; i < item.children.length; ++i) {
            var child = item.children[i]
            found = found.concat(pattern.test(child.objectName) ? [child] : [],
                                 named(child, pattern))
        }
        return found
    }

    function names(items) {
        return items.map(function(item) { return item.objectName })
    }

    // Compares properties with a table of them; colours are compared as texts.
    function compareAll(object, expected) {
        for (var name in expected) {
            var isText = typeof expected[name] === "string"
            compare(isText ? String(object[name]) : object[name], expected[name], name)
        }
    }

    function notes() { return fake.askedOf("note") }

    // A usage event as `fake` records it; the attribute is a text, or an object to write as JSON.
    function event(window, activity, attribute, source) {
        var text = typeof attribute === "object" ? JSON.stringify(attribute) : attribute || ""
        return "event [" + [window, activity, text, source || ""].join("][") + "]"
    }

    function leavePointer() {
        mouseMove(test, test.width - 1, test.height - 1)
    }

    function tryCursor(item, shape) {
        tryVerify(function() { return probe.cursorShape(item) === shape })
    }

    // Brings a control into a state, such as "disabled while hovered", with pointer and keyboard.
    // A disabled control loses the mouse grab, but not a key that is held down.
    function enter(control, state) {
        var pointer = state.split(" while ").pop()
        var disabled = state.indexOf("disabled") === 0
        if (pointer === "hovered" || pointer === "pressed") {
            mouseMove(control, control.width / 2, control.height / 2)
            tryCompare(control, "hovered", true)
        }
        if (state === "pressed by a key") {
            control.forceActiveFocus()
            keyPress(Qt.Key_Space)
        }
        if (pointer === "pressed") {
            if (disabled) {
                control.forceActiveFocus()
                keyPress(Qt.Key_Space)
            } else {
                mousePress(control, control.width / 2, control.height / 2)
            }
            tryCompare(control, "pressed", true)
        }
        if (disabled) {
            control.enabled = false
            verify(pointer === "disabled" || control[pointer], "the control is " + state)
        }
    }

    function leave(control) {
        mouseRelease(control, control.width / 2, control.height / 2)
        keyRelease(Qt.Key_Space)
        leavePointer()
    }
}
