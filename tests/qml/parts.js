// Finding items by their names, what reaches the fake world, and bringing a control into a state.
.pragma library

// Every item below `item` whose objectName matches, in the order in which they are drawn.
function named(item, pattern) {
    var found = []
    for (var i = 0; i < item.children.length; ++i) {
        var child = item.children[i]
        if (pattern.test(child.objectName)) {
            found.push(child)
        }
        found = found.concat(named(child, pattern))
    }
    return found
}

function names(items) {
    return items.map(function(item) { return item.objectName })
}

// The keys that activate a control, as rows of a test.
var keys = [
    { tag: "Space", key: Qt.Key_Space }, { tag: "Return", key: Qt.Key_Return },
    { tag: "Enter", key: Qt.Key_Enter }
]

// A usage event as the fake world records it; the attribute is a text, or what becomes JSON.
function event(window, activity, attribute, source) {
    var text = typeof attribute === "object" ? JSON.stringify(attribute) : attribute || ""
    return "event [" + [window, activity, text, source || ""].join("][") + "]"
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
