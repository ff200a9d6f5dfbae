import QtQml 2.14

// A module needs a type to be importable in a version.
QtObject {}
