// Finding the parts of a control by what they are, and bringing a control into a state.
.pragma library

// Every item below `item` of a type, in the order in which they are drawn: a type of ours by its
// name, one of the toolkit by its class name without the "QQuick" in front.
function all(item, type) {
    var found = []
    for (var i = 0; i < item.children.length; ++i) {
        var child = item.children[i]
        var kind = child.toString()
        if (kind.indexOf("QQuick" + type) === 0 || kind.indexOf(type + "_QML") === 0) {
            found.push(child)
        }
        found = found.concat(all(child, type))
    }
    return found
}

function text(item) {
    return all(item, "Text")[0]
}

// The first plain rectangle: a control's background.
function ground(item) {
    return all(item, "Rectangle")[0]
}

function cursorArea(item) {
    return all(item, "MouseArea").filter(function(area) {
        return area.acceptedButtons === Qt.NoButton
    })[0]
}

// The mark of the keyboard focus.
function focusFrame(item) {
    return all(item, "ZoFocusFrame")[0]
}

// Whether a drawn colour, as "#rrggbb", is as good as another one: no channel is off by more than
// `delta` of 255. The comparison of numbers that tests have takes every colour for every other.
function looksLike(drawn, colour, delta) {
    function channels(text) {
        var parsed = Qt.lighter(text, 1)
        return [parsed.r, parsed.g, parsed.b]
    }
    if (drawn === "") {
        return false
    }
    var wanted = channels(colour)
    return channels(drawn).every(function(value, index) {
        return Math.abs(value - wanted[index]) * 255 <= delta
    })
}

// Brings the control into the state named, with the real pointer. Disabling takes the mouse away
// from a control, but not a key that is held down.
function enter(test, control, state) {
    var words = state.split(" while ")
    var pointer = words[words.length - 1]
    var disabled = words[0] === "disabled"
    if (pointer === "hovered" || pointer === "pressed") {
        test.mouseMove(control, control.width / 2, control.height / 2)
        test.tryCompare(control, "hovered", true)
    }
    if (pointer === "pressed" && disabled) {
        control.forceActiveFocus()
        test.keyPress(Qt.Key_Space)
    } else if (pointer === "pressed") {
        test.mousePress(control, control.width / 2, control.height / 2)
    }
    if (pointer === "pressed") {
        test.tryCompare(control, "pressed", true)
    }
    if (disabled) {
        control.enabled = false
        if (pointer !== "disabled") {
            test.compare(control[pointer], true, "it is " + state)
        }
    }
}

function leave(test, control) {
    test.mouseRelease(control, control.width / 2, control.height / 2)
    test.keyRelease(Qt.Key_Space)
    test.mouseMove(test, test.width - 1, test.height - 1)
}

// Destroys a window or page of a test and waits until it is gone. Destroyed but not yet gone, it could
// still be collected as garbage, which makes all its bindings complain.
function destroy(test, object) {
    object.destroy()
    test.wait(0)
}
