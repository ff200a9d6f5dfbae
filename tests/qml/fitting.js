// Checks whether the texts of a window fit.
.pragma library

// The horizontal padding of a button's text.
var padding = 4

// Every visible item below `item` that `wanted` accepts.
function shown(item, wanted) {
    var found = []
    for (var i = 0; i < item.children.length; ++i) {
        var child = item.children[i]
        if (child.visible && child.opacity > 0) {
            found = found.concat(wanted(child) ? [child] : [], shown(child, wanted))
        }
    }
    return found
}

// Every visible text below `item`, of any type.
function texts(item) {
    return shown(item, function(child) {
        return child.truncated !== undefined && child.lineCount !== undefined && child.text !== ""
    })
}

function isButton(item) {
    return item.pressed !== undefined && item.reCalcWidth !== undefined
}

function isRectangle(item) {
    return item.radius !== undefined && item.border !== undefined
}

// Rectangles with a visible edge.
function isRounded(item) {
    return isRectangle(item) && item.radius > 0
}

// Texts must not overlap push buttons and images, except the background image.
function isObstacle(item) {
    return isButton(item) || (item.paintedWidth !== undefined && item.source !== undefined
                              && String(item.source).indexOf("home_bg.png") < 0)
}

// The rectangle of a text's letters, in the coordinates of its window.
function letters(text) {
    var across = text.width - text.leftPadding - text.rightPadding - text.contentWidth
    var down = text.height - text.topPadding - text.bottomPadding - text.contentHeight
    var shares = {}
    shares[Qt.AlignRight] = shares[Qt.AlignBottom] = 1
    shares[Qt.AlignHCenter] = shares[Qt.AlignVCenter] = 0.5
    var x = across * (shares[text.effectiveHorizontalAlignment] || 0)
    var y = down * (shares[text.verticalAlignment] || 0)
    return text.mapToItem(null, text.leftPadding + x, text.topPadding + y, text.contentWidth,
                          text.contentHeight)
}

function place(item) {
    return item.mapToItem(null, 0, 0, item.width, item.height)
}

function within(rect, other) {
    var slack = 0.5
    return rect.x >= other.x - slack && rect.y >= other.y - slack
            && rect.x + rect.width <= other.x + other.width + slack
            && rect.y + rect.height <= other.y + other.height + slack
}

function meet(rect, other) {
    return rect.x < other.x + other.width && other.x < rect.x + rect.width
            && rect.y < other.y + other.height && other.y < rect.y + rect.height
}

function ancestors(item) {
    return item === null ? [] : [item].concat(ancestors(item.parent))
}

function complaintsAbout(text, others, root) {
    var found = []
    var own = letters(text)
    var above = ancestors(text.parent)
    if (text.truncated) {
        found.push("is truncated")
    }
    if (text.lineCount > (text.wrapMode === 0 /* NoWrap */ ? 1 : 2)) {
        found.push("takes " + text.lineCount + " lines")
    }
    above.forEach(function(item) {
        var rect = place(item)
        if (isButton(item)) {
            rect = Qt.rect(rect.x + padding, rect.y, rect.width - 2 * padding, rect.height)
        }
        var bounds = item.clip || isButton(item) || isRectangle(item) || item === root
        if (bounds && !within(own, rect)) {
            found.push("does not fit into " + item + ": " + own + ", " + rect)
        }
    })
    others.texts.forEach(function(other) {
        if (other !== text && meet(own, letters(other))) {
            found.push("overlaps: " + other.text)
        }
    })
    others.obstacles.forEach(function(item) {
        if (above.indexOf(item) < 0 && meet(own, place(item))) {
            found.push("overlaps " + item + ": " + own + ", " + place(item))
        }
    })
    others.rounded.forEach(function(item) {
        if (meet(own, place(item)) && !within(own, place(item))) {
            found.push("overlaps the edge of " + item + ": " + own + ", " + place(item))
        }
    })
    return found.map(function(complaint) {
        return text.text + " -- " + complaint
    })
}

// A message for each text or button below `root` that does not fit.
function complaints(root) {
    var buttons = shown(root, isButton)
    var others = {
        texts: texts(root), obstacles: shown(root, isObstacle), rounded: shown(root, isRounded)
    }
    var found = others.texts.reduce(function(sofar, text) {
        return sofar.concat(complaintsAbout(text, others, root))
    }, [])
    buttons.forEach(function(button, index) {
        if (!within(place(button), place(button.parent))) {
            found.push(button.text + " -- the button does not fit into its row")
        }
        buttons.slice(index + 1).forEach(function(other) {
            if (meet(place(button), place(other))) {
                found.push(button.text + " -- the button overlaps: " + other.text)
            }
        })
    })
    return found
}
