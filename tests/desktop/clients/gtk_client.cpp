// SPDX-License-Identifier: MIT
// An editor that draws its own title bar and shadow, as GTK programs do. Its title is the first argument; the
// second names the file that holds its text.
#include <gtk/gtk.h>

namespace {

void save(GtkTextBuffer *text, gpointer file) {
    GtkTextIter start;
    GtkTextIter end;
    gtk_text_buffer_get_bounds(text, &start, &end);
    char *content = gtk_text_buffer_get_text(text, &start, &end, FALSE);
    g_file_set_contents(static_cast<const char *>(file), content, -1, nullptr);
    g_free(content);
}

}  // namespace

int main(int argc, char **argv) {
    gtk_init(&argc, &argv);
    const char *title = argc > 1 ? argv[1] : "GTK";
    GtkWidget *window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    GtkWidget *bar = gtk_header_bar_new();
    gtk_header_bar_set_title(GTK_HEADER_BAR(bar), title);
    gtk_header_bar_set_show_close_button(GTK_HEADER_BAR(bar), TRUE);
    gtk_window_set_titlebar(GTK_WINDOW(window), bar);
    gtk_window_set_title(GTK_WINDOW(window), title);
    gtk_window_set_default_size(GTK_WINDOW(window), 640, 400);
    GtkWidget *editor = gtk_text_view_new();
    gtk_container_add(GTK_CONTAINER(window), editor);
    if (argc > 2)
        g_signal_connect(gtk_text_view_get_buffer(GTK_TEXT_VIEW(editor)), "changed", G_CALLBACK(save),
                         argv[2]);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_main_quit), nullptr);
    gtk_widget_show_all(window);
    gtk_main();
}
