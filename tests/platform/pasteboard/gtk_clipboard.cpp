// SPDX-License-Identifier: MIT
// The clipboard as GTK programs use it: "copy text", "copy picture" or "copy markup", until it is ended;
// "paste TARGET" prints the content.
#include <gtk/gtk.h>

#include <cstdio>
#include <string>

namespace {

void copyPicture(GtkClipboard *clipboard) {
    GdkPixbuf *picture = gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, 32, 16);
    gdk_pixbuf_fill(picture, 0x336699ff);
    gtk_clipboard_set_image(clipboard, picture);
    g_object_unref(picture);
}

void copyMarkup(GtkClipboard *clipboard) {
    static char html[] = "text/html";
    static char text[] = "UTF8_STRING";
    GtkTargetEntry targets[] = {{html, 0, 0}, {text, 0, 1}};
    const auto give = [](GtkClipboard *, GtkSelectionData *data, guint form, gpointer) {
        const std::string content = form == 0 ? "<b>GTK</b>" : "GTK";
        gtk_selection_data_set(data, gtk_selection_data_get_target(data), 8,
                               reinterpret_cast<const guchar *>(content.data()), int(content.size()));
    };
    gtk_clipboard_set_with_data(
        clipboard, targets, 2, give, [](GtkClipboard *, gpointer) {}, nullptr);
}

void paste(GtkClipboard *clipboard, const char *target) {
    GtkSelectionData *data = gtk_clipboard_wait_for_contents(clipboard, gdk_atom_intern(target, FALSE));
    if (!data)
        return;
    std::fwrite(gtk_selection_data_get_data(data), 1, std::size_t(gtk_selection_data_get_length(data)),
                stdout);
    gtk_selection_data_free(data);
}

}  // namespace

int main(int argc, char **argv) {
    gtk_init(&argc, &argv);
    GtkClipboard *clipboard = gtk_clipboard_get(GDK_SELECTION_CLIPBOARD);
    const std::string action = argc > 1 ? argv[1] : "";
    const std::string what = argc > 2 ? argv[2] : "";
    if (action == "paste") {
        paste(clipboard, what.c_str());
        return 0;
    }
    if (what == "picture")
        copyPicture(clipboard);
    else if (what == "markup")
        copyMarkup(clipboard);
    else
        gtk_clipboard_set_text(clipboard, "GTK \xc3\xa4", -1);
    gtk_main();
}
