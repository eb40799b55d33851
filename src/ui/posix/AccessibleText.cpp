#include "ui/AccessibleText.h"

#include <gtk/gtk.h>

namespace ventlock {
namespace {

/// The part of a control that takes the keyboard: the list inside what scrolls it, the text of an editable
/// list.
GtkWidget* KeyboardPart(GtkWidget* widget) {
    const bool isAround = GTK_IS_SCROLLED_WINDOW(widget) || GTK_IS_COMBO_BOX(widget);
    GtkWidget* inside = isAround ? gtk_bin_get_child(GTK_BIN(widget)) : nullptr;
    return inside != nullptr && gtk_widget_get_can_focus(inside) != FALSE ? inside : widget;
}

void NameArrow(GtkWidget* part, gpointer name) {
    if (GTK_IS_TOGGLE_BUTTON(part)) {
        atk_object_set_name(gtk_widget_get_accessible(part), static_cast<const char*>(name));
    } else if (GTK_IS_CONTAINER(part)) {
        gtk_container_forall(GTK_CONTAINER(part), NameArrow, name);
    }
}

}  // namespace

void SetAccessibleName(wxWindow& control, const std::string& name) {
    GtkWidget* widget = control.GetHandle();
    GtkWidget* part = KeyboardPart(widget);
    if (part == widget && GTK_IS_COMBO_BOX(widget)) return;  // its name tells what is chosen
    atk_object_set_name(gtk_widget_get_accessible(part), name.c_str());
    if (!GTK_IS_COMBO_BOX(widget)) return;
    std::string whole = name + " \u25BE";  // the arrow is a stop of the keyboard of its own
    atk_object_set_name(gtk_widget_get_accessible(widget), name.c_str());
    gtk_container_forall(GTK_CONTAINER(widget), NameArrow, whole.data());
}

void SetAccessibleDescription(wxWindow& control, const std::string& description) {
    atk_object_set_description(gtk_widget_get_accessible(KeyboardPart(control.GetHandle())),
                               description.c_str());
}

}  // namespace ventlock
