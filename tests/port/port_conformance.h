// What every platform must do alike: the port's rules, stated once and run over each platform. Included by
// one source of a test program, which says for which platforms.
#pragma once

#include "port_driver.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace obk::port {

using std::chrono::milliseconds;

class PortConformance : public testing::TestWithParam<DriverFactory> {
protected:
    PortConformance() : driver(GetParam()()) {}

    void openArea() {
        area = driver->platform().createSurface(areaClient,
                                                {SurfacePlacement::Kind::control, driver->host(), whole});
        ASSERT_TRUE(area);
        taken();
    }
    // A surface with two text boxes, the first above the second; the right part of the surface is free.
    void openBoxes() {
        openArea();
        first = area->createTextBox(firstClient, {{}, {}, u"", 0, {{10, 10, 110, 30}, whole, true}});
        second = area->createTextBox(secondClient, {{}, {}, u"", 0, {{10, 40, 110, 60}, whole, true}});
        ASSERT_TRUE(first && second);
        taken();
    }
    void openFocused() {
        openBoxes();
        enter(*first);
        ASSERT_TRUE(first->hasFocus());
    }
    // What was told since the last time, with all that is under way.
    Journal taken() {
        driver->settle();
        return std::exchange(journal, {});
    }
    // The focus goes there; what is told of that is forgotten.
    void enter(TextBoxPeer& box) {
        box.focus();
        taken();
    }
    static void put(TextBoxPeer& box, TextView text, TextSelection selected) {
        box.setText(text);
        box.setSelection(selected);
    }
    void type(std::string_view letters) {
        for (const char letter : letters) driver->key(letter);
    }
    // What a key tells that types a character which changes nothing.
    static Journal typed(const std::string& who, int code, int character) {
        const std::string key = " " + std::to_string(code);
        return {who + ".preTranslate" + key, who + ".keyDown" + key,
                who + ".keyPress " + std::to_string(character), who + ".keyUp" + key};
    }
    static int count(const Journal& told, const char* what) {
        return static_cast<int>(std::count_if(told.begin(), told.end(), [what](const std::string& line) {
            return line.find(what) != std::string::npos;
        }));
    }

    static constexpr PixelRect whole{0, 0, 200, 120};
    static constexpr PixelPoint overFirst{20, 20};
    static constexpr PixelPoint overSecond{20, 50};
    static constexpr PixelPoint overFree{150, 80};

    std::unique_ptr<PortDriver> driver;
    Journal journal;
    AreaClient areaClient{journal, "area"};
    TextClient firstClient{journal, "first"};
    TextClient secondClient{journal, "second"};
    std::unique_ptr<SurfacePeer> area;
    std::unique_ptr<TextBoxPeer> first;
    std::unique_ptr<TextBoxPeer> second;
};

// Text and selection

TEST_P(PortConformance, SettingATextReportsItBeforeItReturnsEqualOrNotAndSelectsNothing) {
    openBoxes();
    for (const TextView text : {u"one", u"one", u""}) {
        first->setText(text);
        EXPECT_EQ(std::exchange(journal, {}), (Journal{"first.textChanged " + toUtf8(text)}));
    }
    put(*first, u"abcdef", {2, 3});
    first->setText(u"uvwxyz");
    EXPECT_EQ(first->selection(), TextSelection{});
    taken();
    const std::pair<TextSelection, TextSelection> selections[] = {{{2, 3}, {2, 3}},
                                                                  {{0, 6}, {0, 6}},
                                                                  {{4, 9}, {4, 2}},
                                                                  {{9, 1}, {6, 0}},
                                                                  {{-3, 2}, {0, 2}},
                                                                  {{3, -1}, {3, 0}},
                                                                  {{INT32_MAX, INT32_MAX}, {6, 0}}};
    for (const auto& [wanted, within] : selections) {
        first->setSelection(wanted);
        EXPECT_EQ(first->selection(), within) << wanted.start << ", " << wanted.length;
    }
    EXPECT_EQ(taken(), Journal{});
}

TEST_P(PortConformance, TypingReplacesTheSelectionUpToAMaximumThatSettingATextMayPass) {
    openFocused();
    put(*first, u"abcdef", {1, 4});
    type("X");
    EXPECT_EQ(firstClient.text, u"axf");
    EXPECT_EQ(first->selection(), (TextSelection{2, 0}));
    first->setMaxLength(3);
    first->setText(u"abcde");
    type("X");
    EXPECT_EQ(firstClient.text, u"abcde");
    put(*first, u"ab", {2, 0});
    type("XY");
    EXPECT_EQ(firstClient.text, u"abx");
    first->setMaxLength(0);
    type("Z");
    EXPECT_EQ(firstClient.text, u"abxz");
}

TEST_P(PortConformance, EditCommandsSelectMoveTextAndTakeItBack) {
    openFocused();
    first->setText(u"abc");
    first->perform(EditCommand::selectAll);
    EXPECT_EQ(first->selection(), (TextSelection{0, 3}));
    first->perform(EditCommand::copy);
    EXPECT_EQ(firstClient.text, u"abc");
    second->perform(EditCommand::paste);
    EXPECT_EQ(secondClient.text, u"abc");
    second->setMaxLength(4);
    second->perform(EditCommand::paste);
    EXPECT_EQ(secondClient.text, u"abca") << "cut at the maximum length";
    first->setSelection({1, 1});
    first->perform(EditCommand::cut);
    EXPECT_EQ(firstClient.text, u"ac");
    first->perform(EditCommand::undo);
    EXPECT_EQ(firstClient.text, u"abc");
    // What the program puts on the clipboard replaces what is there.
    Platform& platform = driver->platform();
    for (const TextView text : {u"\xE9\r\nnext", u"", u"\xE9 after"}) {
        EXPECT_TRUE(platform.putOnClipboard(area->window(), text));
        EXPECT_EQ(platform.textOnClipboard(area->window()), text);
    }
    first->perform(EditCommand::selectAll);
    first->perform(EditCommand::paste);
    EXPECT_EQ(firstClient.text, u"\xE9 after");
    EXPECT_TRUE(platform.putOnClipboard(area->window(), u""));
    first->perform(EditCommand::paste);
    EXPECT_EQ(firstClient.text, u"\xE9 after");
}

TEST_P(PortConformance, ATextIsDraggedToWhereItIsLetGo) {
    openArea();
    area->acceptDrops();
    area->update();  // drops are heard from the first painting on
    const auto drag = [&](PixelPoint to) {
        driver->mouseMove(*area, overFree);
        driver->mouseDown(button::left);
        area->capture();
        journal.clear();
        driver->letGoAt(*area, to);
        return driver->platform().dragText(u"oak\telm");
    };
    EXPECT_EQ(drag({60, 30}), drop_effect::copy);
    EXPECT_EQ(taken(), (Journal{"area.captureLost", "area.drop 60 30"}));
    areaClient.takesDrops = false;
    EXPECT_EQ(drag({60, 30}), drop_effect::none);
    EXPECT_EQ(taken(), (Journal{"area.captureLost"}));
    areaClient.takesDrops = true;
    EXPECT_EQ(drag({300, 30}), drop_effect::none) << "of the host";
    EXPECT_FALSE(area->hasCapture());
}

TEST_P(PortConformance, ANewAlignmentKeepsTextSelectionAndFocusAndTellsNobody) {
    openFocused();
    put(*first, u"abcdef", {1, 2});
    first->setMaxLength(6);
    taken();
    first->setFlow({HorizontalAlignment::right});
    first->setFlow({HorizontalAlignment::centre});
    EXPECT_EQ(taken(), Journal{});
    EXPECT_EQ(first->selection(), (TextSelection{1, 2}));
    type("XYZ");
    EXPECT_EQ(firstClient.text, u"axydef");
    EXPECT_TRUE(first->hasFocus());
}

// Keys

TEST_P(PortConformance, AKeyIsTranslatedReportedTypedAndReleasedInThisOrder) {
    openFocused();
    type("A");
    EXPECT_EQ(taken(), (Journal{"first.preTranslate 65", "first.keyDown 65", "first.keyPress 97",
                                "first.textChanged a", "first.keyUp 65"}));
    EXPECT_FALSE(firstClient.lastKey.repeated);
    driver->key(key::left);
    EXPECT_EQ(taken(), (Journal{"first.preTranslate 37", "first.keyDown 37", "first.keyUp 37"}));
    EXPECT_EQ(first->selection(), (TextSelection{0, 0}));
    for (const int16_t code : {key::enter, key::tab, key::escape}) {
        driver->key(code);
        EXPECT_EQ(taken(), typed("first", code, code)) << "typed but not inserted";
    }
    driver->keyDown('B', 0);
    driver->keyDown('B', 0);
    EXPECT_TRUE(firstClient.lastKey.repeated);
    driver->keyUp('B', 0);
    EXPECT_EQ(firstClient.text, u"bba");
    for (const int shift : {shift::control | shift::shift, int{shift::alt}}) {
        driver->key(key::down, static_cast<int16_t>(shift));
        EXPECT_EQ(firstClient.lastKey.code, key::down);
        EXPECT_EQ(firstClient.lastKey.shift, shift);
    }
}

TEST_P(PortConformance, AHandledKeyReachesNobodyElseAndOneForTheContainerOnlyWhenNotUsedThere) {
    openFocused();
    firstClient.route = KeyRoute::handled;
    type("A");
    EXPECT_EQ(taken(), (Journal{"first.preTranslate 65", "first.keyUp 65"}));
    firstClient.route = KeyRoute::container;
    firstClient.containerUses = true;
    driver->key(key::tab);
    EXPECT_EQ(taken(), (Journal{"first.preTranslate 9", "first.offerToContainer 9", "first.keyUp 9"}));
    firstClient.containerUses = false;
    driver->key(key::f2);
    EXPECT_EQ(taken(), (Journal{"first.preTranslate 113", "first.offerToContainer 113", "first.keyDown 113",
                                "first.keyUp 113"}));
}

TEST_P(PortConformance, KeysAreDiscardedAndCharactersChangedAndDiscardedByTheAnswer) {
    openFocused();
    firstClient.discardsKeys = true;
    type("A");
    EXPECT_EQ(taken(), (Journal{"first.preTranslate 65", "first.keyDown 65", "first.keyUp 65"}));
    put(*first, u"abc", {3, 0});
    driver->key(key::left);
    EXPECT_EQ(first->selection(), (TextSelection{3, 0}));
    firstClient.discardsKeys = false;
    firstClient.changeCharacter = [](int16_t character) {
        return character == 'a' ? int16_t{'*'} : int16_t{0};
    };
    type("A");
    EXPECT_EQ(firstClient.text, u"abc*");
    taken();
    type("B");
    EXPECT_EQ(firstClient.text, u"abc*");
    EXPECT_EQ(taken(), typed("first", 66, 98));
}

TEST_P(PortConformance, ASurfaceWithTheFocusGetsItsKeysAndWhatIsTypedFollowsTheFocusThatTheyMove) {
    for (const char* report : {"keyDown", "keyPress"}) {
        openBoxes();
        area->focus();
        EXPECT_TRUE(area->hasFocus());
        taken();
        type("A");
        EXPECT_EQ(taken(), typed("area", 65, 97));
        areaClient.on[report] = [this] { first->focus(); };
        type("A");
        EXPECT_EQ(firstClient.text, u"a") << report;
        areaClient.on.clear();
        first->setText(u"");
        area.reset();
    }
}

// Focus

TEST_P(PortConformance, TheFocusIsLostBeforeItIsGainedAndStaysInTheSurface) {
    openFocused();
    first->focus();
    EXPECT_EQ(taken(), Journal{}) << "it has it already";
    bool inSurface = false;
    for (TextClient* losing : {&firstClient, &secondClient})
        losing->on["focusLost"] = [&] { inSurface = area->hasFocus(); };
    second->focus();
    EXPECT_EQ(taken(), (Journal{"first.focusLost", "second.focusGained"}));
    EXPECT_TRUE(inSurface);
    EXPECT_FALSE(first->hasFocus());
    EXPECT_TRUE(second->hasFocus());
    driver->focusHost();
    EXPECT_EQ(taken(), (Journal{"second.focusLost"}));
    EXPECT_FALSE(inSurface);
}

TEST_P(PortConformance, AnotherApplicationIsNoLeaving) {
    openFocused();
    const auto away = [&] {
        driver->leaveApplication();
        EXPECT_TRUE(first->hasFocus() && area->hasFocus());
        return taken();
    };
    EXPECT_EQ(away(), Journal{});
    driver->returnToApplication(first->window());
    EXPECT_EQ(taken(), Journal{}) << "it has never left";
    type("A");
    EXPECT_EQ(firstClient.text, u"a");
    away();
    driver->returnToApplication(0);
    EXPECT_EQ(taken(), (Journal{"first.focusLost"}));
    EXPECT_FALSE(area->hasFocus());
    enter(*first);
    away();
    driver->returnToApplication(second->window());
    EXPECT_EQ(taken(), (Journal{"first.focusLost", "second.focusGained"}));
    // What cannot have the focus any more has lost it, there as here; and panels go.
    AreaClient panelClient(journal, "panel");
    const auto panel = driver->platform().createSurface(
        panelClient, {SurfacePlacement::Kind::panel, area->window(), {300, 200, 360, 240}});
    ASSERT_TRUE(panel);
    panel->setVisible(true);
    taken();
    driver->leaveApplication();
    EXPECT_EQ(taken(), (Journal{"panel.hostMoved"}));
    second->setEnabled(false);
    EXPECT_EQ(taken(), (Journal{"second.focusLost"}));
    driver->returnToApplication(0);
    EXPECT_EQ(taken(), Journal{});
}

TEST_P(PortConformance, NoFocusWhileDisabledOrInvisible) {
    openBoxes();
    const auto refused = [&](const char* why) {
        driver->focusHost();
        enter(*second);
        first->focus();
        EXPECT_FALSE(first->hasFocus()) << why;
        EXPECT_EQ(taken(), Journal{}) << why;
    };
    first->setEnabled(false);
    refused("disabled");
    first->setEnabled(true);
    first->setVisible(false);
    refused("invisible");
    first->setVisible(true);
    first->setBounds({10, 10, 110, 30}, {150, 0, 200, 120});
    refused("clipped away");
    first->setBounds({10, 10, 110, 30}, whole);
    enter(*first);
    EXPECT_TRUE(first->hasFocus());
    area->setEnabled(false);
    refused("in a disabled surface");
    area->setEnabled(true);
    area->setVisible(false);
    refused("in an invisible surface");
}

TEST_P(PortConformance, DisablingTakesTheFocusAwayAndHidingGivesItToTheSurface) {
    openFocused();
    first->setEnabled(false);
    EXPECT_EQ(taken(), (Journal{"first.focusLost"}));
    EXPECT_FALSE(area->hasFocus());
    first->setEnabled(true);
    enter(*first);
    first->setVisible(false);
    EXPECT_EQ(taken(), (Journal{"first.focusLost", "area.focusGained"}));
    EXPECT_TRUE(area->hasFocus());
    enter(*second);
    area->setEnabled(false);
    EXPECT_EQ(taken(), (Journal{"second.focusLost"}));
    area->setEnabled(true);
    enter(*second);
    area->setVisible(false);
    EXPECT_EQ(taken(), (Journal{"second.focusLost"}));
    EXPECT_FALSE(area->hasFocus());
}

TEST_P(PortConformance, TheFocusOfADestroyedTextBoxStaysInTheSurfaceWithoutAReport) {
    openFocused();
    first.reset();
    EXPECT_EQ(taken(), Journal{});
    EXPECT_TRUE(area->hasFocus());
    type("A");
    EXPECT_EQ(taken(), typed("area", 65, 97));
}

// The mouse

TEST_P(PortConformance, APressOnATextBoxFocusesItBeforeItIsReportedWhichKnowsThatNoKeysEnteredIt) {
    openBoxes();
    driver->focusHost();
    for (TextBoxPeer* entered : {second.get(), first.get()}) {
        enter(*entered);
        EXPECT_TRUE(entered->enteredByKeys());
    }
    bool byKeys = true;
    secondClient.on["focusGained"] = [&] { byKeys = second->enteredByKeys(); };
    driver->focusHost();
    taken();
    driver->click(*area, overSecond);
    EXPECT_EQ(taken(), (Journal{"second.focusGained", "second.mouseDown 1", "second.mouseUp 1"}));
    EXPECT_TRUE(second->hasFocus());
    EXPECT_FALSE(byKeys);
    EXPECT_EQ(secondClient.lastMouse.at, (PixelPoint{10, 10}));
    first->setEnabled(false);
    driver->click(*area, overFirst);
    EXPECT_EQ(count(taken(), "first."), 0) << "disabled, it hears nothing of the mouse";
}

TEST_P(PortConformance, ADoubleClickStandsForTheSecondPress) {
    openArea();
    driver->click(*area, overFree);
    driver->click(*area, overFree);
    EXPECT_EQ(taken(),
              (Journal{"area.mouseDown 1", "area.mouseUp 1", "area.doubleClick 1", "area.mouseUp 1"}));
}

TEST_P(PortConformance, MovesCarryTheButtonsHeldAndLeavingIsReported) {
    openBoxes();
    areaClient.reportsMoves = true;
    driver->mouseMove(*area, {150, 70});
    taken();
    driver->mouseDown(button::right);
    driver->mouseMove(*area, {151, 70});
    EXPECT_EQ(taken(), (Journal{"area.mouseDown 2", "area.move 2"}));
    EXPECT_EQ(areaClient.lastMouse.at, (PixelPoint{151, 70}));
    driver->mouseUp(button::right);
    driver->mouseMove(*area, {152, 70});
    EXPECT_EQ(taken(), (Journal{"area.mouseUp 2", "area.contextMenu 151 70", "area.move 0"}));
    for (int time = 0; time < 2; ++time) {
        driver->mouseMove(*area, overFirst);
        EXPECT_EQ(taken(), (Journal{"area.leave 0"}));
        driver->mouseMove(*area, {152, 70});
        taken();
    }
}

TEST_P(PortConformance, AWheelOverATextBoxIsNotTheSurfacesWhetherUsedOrNot) {
    openFocused();
    driver->mouseMove(*area, overFirst);
    taken();
    for (const bool used : {false, true}) {
        firstClient.usesWheel = used;
        driver->wheel(30);
        EXPECT_EQ(taken(), (Journal{"first.wheel 30"}));
    }
}

// Capture

TEST_P(PortConformance, OnlyACaptureThatIsTakenAwayIsReportedAndOnlyOnesOwnIsReleased) {
    openArea();
    AreaClient otherClient(journal, "other");
    const auto other = driver->platform().createSurface(
        otherClient, {SurfacePlacement::Kind::control, driver->host(), {220, 0, 300, 120}});
    ASSERT_TRUE(other);
    taken();
    area->capture();
    area->capture();
    EXPECT_TRUE(area->hasCapture());
    area->releaseCapture();
    EXPECT_FALSE(area->hasCapture());
    area->releaseCapture();
    EXPECT_EQ(taken(), Journal{});
    area->capture();
    driver->takeCaptureAway();
    EXPECT_FALSE(area->hasCapture());
    EXPECT_EQ(taken(), (Journal{"area.captureLost"}));
    area->capture();
    other->capture();
    EXPECT_EQ(taken(), (Journal{"area.captureLost"}));
    area->releaseCapture();
    EXPECT_TRUE(other->hasCapture());
    EXPECT_EQ(taken(), Journal{});
    other->releaseCapture();
}

TEST_P(PortConformance, ACapturingSurfaceHearsOfTheMouseOutsideAndOverItsChildren) {
    openBoxes();
    area->capture();
    for (const PixelPoint at : {PixelPoint{210, -5}, overFirst}) {
        driver->click(*area, at);
        EXPECT_EQ(taken(), (Journal{"area.mouseDown 1", "area.mouseUp 1"}));
        EXPECT_EQ(areaClient.lastMouse.at, at);
    }
    EXPECT_FALSE(first->hasFocus());
    area->releaseCapture();
}

// Surfaces

TEST_P(PortConformance, AChildBeginsWithWhatItIsMadeWith) {
    openArea();
    const TextFlow right{HorizontalAlignment::right};
    first = area->createTextBox(firstClient, {right, {}, u"abc", 4, {{10, 10, 110, 30}, whole, true}});
    second = area->createTextBox(secondClient, {{}, {}, u"gone", 0, {{10, 40, 110, 60}, {}, true}});
    CheckClient checkClient(journal, "check");
    const auto check = area->createCheckBox(checkClient, {{10, 70, 30, 90}, whole, false});
    ASSERT_TRUE(first && second && check);
    EXPECT_EQ(taken(), Journal{}) << "its own text is no change";
    EXPECT_EQ(first->selection(), TextSelection{});
    second->focus();
    check->focus();
    EXPECT_FALSE(second->hasFocus()) << "nothing of it shows";
    EXPECT_FALSE(check->hasFocus()) << "it is disabled";
    first->focus();
    ASSERT_TRUE(first->hasFocus());
    type("XY");
    EXPECT_EQ(firstClient.text, u"xabc") << "what is typed stands first, and no more than four";
    second->setBounds({10, 40, 110, 60}, whole);
    second->focus();
    EXPECT_TRUE(second->hasFocus());
    check->setEnabled(true);
    check->focus();
    EXPECT_TRUE(check->hasFocus());
}

TEST_P(PortConformance, ACheckBoxTellsOfPressesAndLeavesItsMarkToTheClient) {
    openArea();
    CheckClient client{journal, "check"};
    const auto check = area->createCheckBox(client, {{10, 10, 40, 40}, whole, true});
    ASSERT_TRUE(check);
    taken();
    driver->click(*area, overFirst);
    EXPECT_EQ(taken(),
              (Journal{"check.focusGained", "check.mouseDown 1", "check.mouseUp 1", "check.checkPressed"}));
    driver->click(*area, overFirst);
    EXPECT_EQ(taken(), (Journal{"check.doubleClick 1", "check.mouseUp 1", "check.checkPressed"}))
        << "the second press of a quick pair is one like any other";
    check->setChecked(true);
    driver->key(key::space);
    Journal byKey = taken();
    std::erase(byKey, "check.keyPress 32");  // not every driver's blank key types
    EXPECT_EQ(byKey,
              (Journal{"check.preTranslate 32", "check.keyDown 32", "check.keyUp 32", "check.checkPressed"}));
    driver->mouseMove(*area, overFirst);
    driver->mouseDown(button::left);
    driver->mouseMove(*area, overFree);
    driver->mouseUp(button::left);
    check->setEnabled(false);
    driver->click(*area, overFirst);
    EXPECT_EQ(count(taken(), "checkPressed"), 0) << "let go outside, and disabled";
}

TEST_P(PortConformance, WhatIsInvalidIsPaintedOnceAndNothingElseWhileItShows) {
    openArea();
    const auto paintedNow = [this] {
        areaClient.painted.clear();
        area->update();
        driver->settle();
        return areaClient.painted;
    };
    paintedNow();
    EXPECT_EQ(paintedNow(), std::vector<PixelRect>{});
    area->invalidate({5, 6, 25, 16});
    EXPECT_EQ(paintedNow(), (std::vector<PixelRect>{{5, 6, 25, 16}}));
    area->invalidate({5, 6, 5, 16});
    EXPECT_EQ(paintedNow(), std::vector<PixelRect>{});
    area->setVisible(false);
    area->invalidate({0, 0, 10, 10});
    EXPECT_EQ(paintedNow(), std::vector<PixelRect>{});
    area->setVisible(true);
    const auto shown = paintedNow();
    ASSERT_FALSE(shown.empty());
    EXPECT_TRUE(shown.front().contains({5, 5}));
}

TEST_P(PortConformance, APanelStartsHiddenAndNeverTakesTheFocus) {
    openFocused();
    AreaClient panelClient(journal, "panel");
    const PixelPoint corner = area->toScreen({0, 130});
    const auto panel = driver->platform().createSurface(
        panelClient,
        {SurfacePlacement::Kind::panel, area->window(), {corner.x, corner.y, corner.x + 100, corner.y + 60}});
    ASSERT_TRUE(panel);
    driver->settle();
    panel->update();
    EXPECT_TRUE(panelClient.painted.empty());
    panel->setVisible(true);
    panel->update();
    driver->settle();
    EXPECT_FALSE(panelClient.painted.empty());
    EXPECT_EQ(panel->toScreen({0, 0}), corner);
    TextClient textClient(journal, "text");
    CheckClient checkClient(journal, "check");
    const auto text = panel->createTextBox(textClient, {});
    const auto check = panel->createCheckBox(checkClient, {});
    text->setBounds({5, 5, 45, 25}, {0, 0, 100, 60});
    check->setBounds({5, 40, 25, 55}, {0, 0, 100, 60});
    panel->focus();
    text->focus();
    check->focus();
    for (const NativeWindow asked : {panel->window(), text->window(), check->window()})
        driver->askFocus(asked);
    for (const PixelPoint at : {PixelPoint{70, 30}, {10, 10}, {10, 45}}) driver->click(*panel, at);
    EXPECT_TRUE(first->hasFocus());
    EXPECT_FALSE(panel->hasFocus() || text->hasFocus() || check->hasFocus());
    EXPECT_EQ(count(taken(), "focus"), 0);
    // Nor while its host moves, of which it hears as long as it shows.
    driver->moveHost();
    EXPECT_EQ(taken(), (Journal{"panel.hostMoved"}));
    panel->setVisible(false);
    driver->moveHost();
    EXPECT_TRUE(first->hasFocus());
    EXPECT_EQ(taken(), Journal{});
    panel->setVisible(true);
    panelClient.on["hostMoved"] = [&] { area.reset(); };
    driver->moveHost();
    EXPECT_FALSE(area) << "its control may be closed then";
}

TEST_P(PortConformance, APressOfSomethingElseThatTakesNoFocusIsToldWhereTheFocusIs) {
    openBoxes();
    driver->focusHost();
    driver->pressTool();
    EXPECT_EQ(taken(), Journal{});
    enter(*first);
    driver->pressTool();
    EXPECT_EQ(taken(), (Journal{"area.pressedElsewhere"}));
    EXPECT_TRUE(first->hasFocus());
    driver->click(*area, overFirst);
    driver->click(*area, overSecond);
    driver->focusHost();
    EXPECT_EQ(count(taken(), "pressedElsewhere"), 0) << "neither pressed inside nor where the focus goes";
    areaClient.on["pressedElsewhere"] = [&] { area.reset(); };
    enter(*second);
    second.reset();
    first->focus();
    driver->pressTool();
    EXPECT_FALSE(area) << "which may be closed then";
}

TEST_P(PortConformance, AParkedSurfaceIsKeptWhenItGetsItsPlace) {
    EXPECT_FALSE(
        driver->platform().createSurface(areaClient, {SurfacePlacement::Kind::control, 0, {0, 0, 10, 10}}));
    area = driver->platform().createSurface(areaClient, {SurfacePlacement::Kind::parked, 0, {}});
    ASSERT_TRUE(area);
    const NativeWindow window = area->window();
    EXPECT_NE(window, NativeWindow{0});
    first = area->createTextBox(firstClient, {});
    ASSERT_TRUE(first);
    put(*first, u"abcdef", {1, 2});
    first->setBounds({10, 10, 110, 30}, whole);
    first->focus();
    EXPECT_FALSE(first->hasFocus());
    area->setParent(driver->host());
    area->setBounds(whole);
    area->setVisible(true);
    area->update();
    EXPECT_EQ(area->window(), window);
    EXPECT_FALSE(areaClient.painted.empty());
    EXPECT_EQ(first->selection(), (TextSelection{1, 2}));
    first->focus();
    EXPECT_TRUE(first->hasFocus());
    type("X");
    EXPECT_EQ(firstClient.text, u"axdef");
}

TEST_P(PortConformance, AClosedSurfaceLeavesItsChildrenHarmless) {
    openFocused();
    first->setText(u"abc");
    area.reset();
    taken();
    first->setText(u"x");
    first->setSelection({0, 1});
    first->setFlow({HorizontalAlignment::right});
    first->setEnabled(false);
    first->focus();
    EXPECT_FALSE(first->hasFocus());
    EXPECT_EQ(first->window(), NativeWindow{0});
    EXPECT_EQ(taken(), Journal{});
}

// Clients that go in the middle of a call

TEST_P(PortConformance, AClientMayDestroyItsChildInEveryReport) {
    for (const char* report :
         {"preTranslate", "offerToContainer", "keyDown", "keyPress", "textChanged", "keyUp", "focusGained",
          "focusLost", "mouseDown", "mouseUp", "doubleClick", "wheel", "move"}) {
        SCOPED_TRACE(report);
        openBoxes();
        firstClient.route = KeyRoute::container;
        firstClient.reportsMoves = true;
        firstClient.on[report] = [this] { first.reset(); };
        driver->click(*area, overFirst);
        driver->click(*area, overFirst);
        driver->wheel(120);
        type("A");
        driver->focusHost();
        EXPECT_FALSE(first);
        const Journal told = taken();
        const auto end = std::find_if(told.begin(), told.end(), [report](const std::string& line) {
            return line.starts_with(std::string("first.") + report);
        });
        ASSERT_NE(end, told.end());
        // A report that was under way above this one is told before it.
        EXPECT_EQ(count({end + 1, told.end()}, "first."), 0) << "after its end it hears nothing more";
        firstClient.on.clear();
        second.reset();
        area.reset();
    }
    for (const char* report : {"focusGained", "mouseDown", "mouseUp", "checkPressed", "keyDown", "keyUp"}) {
        SCOPED_TRACE(report);
        openArea();
        CheckClient client{journal, "check"};
        auto check = area->createCheckBox(client, {{10, 10, 40, 40}, whole, true});
        driver->settle();
        client.on[report] = [&check] { check.reset(); };
        driver->click(*area, overFirst);
        driver->key(key::space);
        EXPECT_FALSE(check);
        area.reset();
    }
}

TEST_P(PortConformance, AClientMayDestroyItsSurfaceInEveryReport) {
    const std::function<void()> steps[] = {
        [this] { area->focus(); },
        [this] { driver->click(*area, overFree); },
        [this] { driver->wheel(120); },
        [this] { type("A"); },
        [this] { area->capture(); },
        [this] { driver->takeCaptureAway(); },
        [this] {
            area->invalidate({0, 0, 10, 10});
        },
        [this] { area->update(); },
        [this] { driver->focusHost(); },
    };
    for (const char* report : {"preTranslate", "keyDown", "keyPress", "keyUp", "focusGained", "focusLost",
                               "mouseDown", "mouseUp", "captureLost", "wheel", "paint"}) {
        SCOPED_TRACE(report);
        openBoxes();
        areaClient.on[report] = [this] { area.reset(); };
        for (const auto& step : steps)
            if (area) step();
        EXPECT_FALSE(area);
        areaClient.on.clear();
        first.reset();
        second.reset();
    }
}

TEST_P(PortConformance, AControlThatIsGoingHearsNothing) {
    openFocused();
    firstClient.alive = false;
    areaClient.alive = false;
    driver->key('A');
    driver->focusHost();
    first->setText(u"abc");
    EXPECT_EQ(taken(), Journal{});
}

// Timers

TEST_P(PortConformance, ATimerTicksUntilItIsStoppedAndBeginsANewPeriodWithEachStart) {
    int ticks = 0;
    const auto timer =
        driver->platform().createTimer([] { return std::make_shared<int>(0); }, [&] { ++ticks; });
    const auto ticksIn = [&](int time) {
        ticks = 0;
        driver->pass(milliseconds(time));
        return ticks;
    };
    EXPECT_EQ(ticksIn(60), 0);
    timer->start(milliseconds(20));
    EXPECT_GE(ticksIn(150), 2);
    timer->stop();
    EXPECT_EQ(ticksIn(60), 0);
    for (int i = 0; i < 6; ++i) {
        timer->start(milliseconds(200));
        EXPECT_EQ(ticksIn(50), 0);
    }
    EXPECT_EQ(ticksIn(250), 1);
}

TEST_P(PortConformance, ATickMayStopRestartOrDestroyItsTimerAndComesToNoControlThatIsGoing) {
    std::unique_ptr<TimerPeer> timer;
    const auto ticks = [&](const std::function<void()>& action, bool alive = true) {
        int count = 0;
        timer = driver->platform().createTimer([&] { return alive ? std::make_shared<int>(0) : nullptr; },
                                               [&count, action] { ++count, action(); });
        timer->start(milliseconds(10));
        driver->pass(milliseconds(100));
        return count;
    };
    EXPECT_EQ(ticks([&] { timer->stop(); }), 1);
    EXPECT_EQ(ticks([&] { timer.reset(); }), 1);
    EXPECT_EQ(ticks([&] { timer->start(milliseconds(5000)); }), 1);
    EXPECT_EQ(ticks([] {}, false), 0);
}

}  // namespace obk::port
