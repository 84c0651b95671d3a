// A part of the window that is made when it is first shown, and kept from then on: the window need
// not wait for it. Who uses it names the part's file, as the source or to setSource(), so that not
// even its types are loaded before. A part that goes gives up the keys, which would go on to it
// unseen.
import QtQuick

Loader {
    id: part

    /// The part is to be seen now.
    required property bool shown

    active: false
    onShownChanged: focus = shown && focus

    Binding {
        target: part
        property: "active"
        when: part.shown
        value: true
        restoreMode: Binding.RestoreNone
    }
}
