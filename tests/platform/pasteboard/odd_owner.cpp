// SPDX-License-Identifier: MIT
// Owns the clipboard as badly as programs do: odd_owner BEHAVIOUR. Prints a line once it owns it.
#include <xcb/xcb.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include <poll.h>
#include <unistd.h>

namespace {

using Request = xcb_selection_request_event_t;

class Owner {
public:
    Owner() {
        root_ = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
        xcb_create_window(x, XCB_COPY_FROM_PARENT, window_, root_, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
    }

    void own() {
        xcb_set_selection_owner(x, window_, atom("CLIPBOARD"), XCB_CURRENT_TIME);
        xcb_flush(x);
    }
    xcb_atom_t atom(const char *name) {
        xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(
            x, xcb_intern_atom(x, false, std::uint16_t(std::strlen(name)), name), nullptr);
        const xcb_atom_t atom = reply->atom;
        std::free(reply);
        return atom;
    }
    bool wants(const Request &request, const char *target) { return request.target == atom(target); }

    void put(const Request &request, xcb_atom_t type, int format, const std::string &bytes) {
        xcb_change_property(x, XCB_PROP_MODE_REPLACE, request.requestor, request.property, type,
                            std::uint8_t(format), std::uint32_t(bytes.size() * 8 / std::size_t(format)),
                            bytes.data());
    }
    void notify(const Request &request, xcb_atom_t property) {
        xcb_selection_notify_event_t notice{};
        notice.response_type = XCB_SELECTION_NOTIFY;
        notice.requestor = request.requestor;
        notice.selection = request.selection;
        notice.target = request.target;
        notice.property = property;
        xcb_send_event(x, false, request.requestor, 0, reinterpret_cast<const char *>(&notice));
        xcb_flush(x);
    }
    void answer(const Request &request, xcb_atom_t type, int format, const std::string &bytes) {
        put(request, type, format, bytes);
        notify(request, request.property);
    }
    void refuse(const Request &request) { notify(request, XCB_NONE); }
    void list(const Request &request, const std::vector<const char *> &targets) {
        std::vector<xcb_atom_t> atoms;
        for (const char *target : targets)
            atoms.push_back(atom(target));
        answer(request, XCB_ATOM_ATOM, 32,
               {reinterpret_cast<const char *>(atoms.data()), atoms.size() * sizeof(xcb_atom_t)});
    }
    void announce(const Request &request, std::uint32_t size) {
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(x, request.requestor, XCB_CW_EVENT_MASK, &mask);
        announced_ = request;
        answer(request, atom("INCR"), 32, {reinterpret_cast<const char *>(&size), sizeof size});
    }
    void piece(const std::string &bytes, int format = 8) {
        put(announced_, atom("image/png"), format, bytes);
        xcb_flush(x);
    }

    xcb_connection_t *x = xcb_connect(nullptr, nullptr);
    int pieces = 0;  ///< that were taken

private:
    xcb_window_t root_;
    xcb_window_t window_ = xcb_generate_id(x);
    Request announced_{};
};

/// What an owner does when it is asked, and when a piece was taken.
struct Behaviour {
    void (*asked)(Owner &, const Request &) = nullptr;
    void (*taken)(Owner &) = nullptr;
    int idle = -1;  ///< milliseconds after which it owns the clipboard once more
};

void say(const char *line) {
    std::puts(line);
    std::fflush(stdout);
}

void text(Owner &owner, const Request &request, const char *value) {
    owner.answer(request, owner.atom("UTF8_STRING"), 8, value);
}

/// A picture beside a text; the picture as `picture` answers it.
template <auto picture>
void pictureAndText(Owner &owner, const Request &request) {
    if (owner.wants(request, "TARGETS"))
        owner.list(request, {"image/png", "UTF8_STRING"});
    else if (owner.wants(request, "image/png"))
        picture(owner, request);
    else if (owner.wants(request, "UTF8_STRING"))
        text(owner, request, "text");
    else
        owner.refuse(request);
}

void silence(Owner &, const Request &) {
}
void refusal(Owner &owner, const Request &request) {
    owner.refuse(request);
}
template <std::uint32_t size>
void announcement(Owner &owner, const Request &request) {
    owner.announce(request, size);
}
template <int milliseconds, int count>
void slowPiece(Owner &owner) {
    usleep(milliseconds * 1000);
    owner.piece(owner.pieces > count ? std::string() : std::string(1000, 'x'));
}

const std::map<std::string, Behaviour> behaviours = {
    {"silent", {silence}},
    {"silentAboutContent", {pictureAndText<silence>}},
    {"refusesThePicture", {pictureAndText<refusal>}},
    {"sendsThePictureAsNumbers", {pictureAndText<[](Owner &owner, const Request &request) {
         owner.answer(request, owner.atom("image/png"), 32, std::string(400, 'x'));
     }>}},
    {"sendsNoProperty",
     {pictureAndText<[](Owner &owner, const Request &request) { owner.notify(request, request.property); }>}},
    {"sendsEightMegabytesAtOnce", {pictureAndText<[](Owner &owner, const Request &request) {
         owner.answer(request, owner.atom("image/png"), 8, std::string(8 << 20, 'x'));
     }>}},
    {"announcesTwoGigabytes",
     {pictureAndText<announcement<2'000'000'000>>, [](Owner &owner) { owner.piece("x"); }}},
    {"diesInThePieces",
     {pictureAndText<announcement<100'000>>,
      [](Owner &owner) {
          if (owner.pieces > 2)
              _exit(0);
          owner.piece("x");
      }}},
    {"stopsInThePieces",
     {pictureAndText<announcement<100'000>>,
      [](Owner &owner) {
          if (owner.pieces < 2)
              owner.piece("x");
      }}},
    {"changesFormatInThePieces",
     {pictureAndText<announcement<100>>,
      [](Owner &owner) { owner.piece("xxxx", owner.pieces < 2 ? 8 : 32); }}},
    {"sendsForEver",
     {pictureAndText<announcement<1>>, [](Owner &owner) { owner.piece(std::string(256 << 10, 'x')); }}},
    {"sendsSlowly", {pictureAndText<announcement<1>>, slowPiece<20, 10>}},
    {"sendsTooSlowly", {pictureAndText<announcement<1>>, slowPiece<200, 100>}},
    {"ownsAgainBeforeItsContent", {pictureAndText<[](Owner &owner, const Request &request) {
         owner.own();
         owner.answer(request, owner.atom("image/png"), 8, "newer");
     }>}},
    {"ownsAgainInThePieces",
     {pictureAndText<announcement<100>>,
      [](Owner &owner) {
          if (owner.pieces == 2)
              owner.own();
          owner.piece("x");
      }}},
    {"knowsNoTargets", {[](Owner &owner, const Request &request) {
         owner.wants(request, "STRING") ? owner.answer(request, XCB_ATOM_STRING, 8, "caf\xe9")
                                        : owner.refuse(request);
     }}},
    {"listsGarbage", {[](Owner &owner, const Request &request) {
         if (owner.wants(request, "TARGETS"))
             owner.answer(request, XCB_ATOM_STRING, 8, "garbage");
         else
             text(owner, request, "text");
     }}},
    {"listsAMillion", {[](Owner &owner, const Request &request) {
         if (owner.wants(request, "TARGETS"))
             owner.answer(request, XCB_ATOM_ATOM, 32, std::string(4'000'000, '\1'));
         else
             text(owner, request, "text");
     }}},
    {"offersOnlyAJpeg", {[](Owner &owner, const Request &request) {
         if (owner.wants(request, "TARGETS"))
             owner.list(request, {"image/jpeg"});
         else
             owner.answer(request, owner.atom("image/jpeg"), 8, "jpeg");
     }}},
    {"isSecret", {[](Owner &owner, const Request &request) {
         if (owner.wants(request, "TARGETS"))
             owner.list(request, {"UTF8_STRING", "x-kde-passwordManagerHint"});
         else if (owner.wants(request, "UTF8_STRING"))
             text(owner, request, "password");
         else
             text(owner, request, "secret"), say("asked for its mark");
     }}},
    {"ownsAgainAndAgain",
     {[](Owner &owner, const Request &request) {
          if (owner.wants(request, "TARGETS"))
              owner.list(request, {"UTF8_STRING"});
          else
              text(owner, request, "foreign");
      },
      nullptr, 1}},
};

void handle(Owner &owner, const Behaviour &behaviour, const xcb_generic_event_t &event) {
    const int type = event.response_type & 0x7f;
    if (type == XCB_SELECTION_REQUEST) {
        behaviour.asked(owner, reinterpret_cast<const Request &>(event));
        return;
    }
    const bool isTaken =
        type == XCB_PROPERTY_NOTIFY &&
        reinterpret_cast<const xcb_property_notify_event_t &>(event).state == XCB_PROPERTY_DELETE;
    if (!isTaken || !behaviour.taken)
        return;
    ++owner.pieces;
    behaviour.taken(owner);
}

}  // namespace

int main(int argc, char **argv) {
    const auto known = behaviours.find(argc > 1 ? argv[1] : "");
    if (known == behaviours.end())
        return 1;
    const Behaviour &behaviour = known->second;
    Owner owner;
    owner.own();
    say("owner");
    while (!xcb_connection_has_error(owner.x)) {
        while (xcb_generic_event_t *event = xcb_poll_for_event(owner.x)) {
            handle(owner, behaviour, *event);
            std::free(event);
        }
        pollfd source{xcb_get_file_descriptor(owner.x), POLLIN, 0};
        if (poll(&source, 1, behaviour.idle) == 0)
            owner.own();
    }
}
