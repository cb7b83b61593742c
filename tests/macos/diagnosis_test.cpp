// SPDX-License-Identifier: MIT
#include "platform/diagnosis/mac_diagnosis.h"

#include "fake_audio.h"
#include "fake_ax.h"
#include "fake_carbon.h"
#include "fake_events.h"
#include "mac_test.h"
#include "platform/audio/mac_audio.h"
#include "platform/events/mac_key_tap.h"
#include "platform/windows/mac_windows.h"

namespace pimloft::test {

namespace {

struct PassingFilter final : KeyFilter {
    KeyEvent filter(KeyEvent event, std::string_view, Instant) noexcept override { return event; }
};

class MacDiagnosisTest : public MacTest {
protected:
    MacDiagnosisTest() {
        mac::soundSystem().devices = {{41, "Speakers", "uid"}};
        mac::soundSystem().output = 41;
    }

    /// "Accessibility: Allowed", with a star before a refusal.
    std::string finding(const QString &subject) {
        for (const Finding &each : diagnosis_.findings())
            if (each.subject == subject)
                return std::string(each.granted ? "" : "*").append(each.detail.toStdString());
        return "none";
    }

    SystemClock clock_;
    MacWindows windows_;
    MacKeyTap tap_{clock_};
    MacAudio audio_;
    MacDiagnosis diagnosis_{windows_, tap_, audio_};
};

TEST_F(MacDiagnosisTest, grantsEverythingWhereEverythingIsAllowed) {
    std::string text;
    for (const Finding &each : diagnosis_.findings())
        text.append(each.granted ? "" : "*")
            .append(each.subject.toStdString())
            .append(": ")
            .append(each.detail.toStdString())
            .append("\n");
    EXPECT_EQ(text, "Accessibility: Allowed\n"
                    "Key events: Allowed\n"
                    "Secure input: Off\n"
                    "Key mappings: Ready\n"
                    "Sound: Speakers\n");
}

TEST_F(MacDiagnosisTest, beginsWithThePermissionThatEverythingElseNeeds) {
    mac::focusedWindow().isTrusted = false;
    const auto findings = diagnosis_.findings();
    EXPECT_EQ(findings.front().subject, QStringLiteral("Accessibility"));
    EXPECT_FALSE(findings.front().granted);
    EXPECT_EQ(finding(QStringLiteral("Key mappings")), "*They need accessibility.");
}

TEST_F(MacDiagnosisTest, saysThatNothingCanBePasted) {
    mac::setMayPost(false);
    EXPECT_EQ(finding(QStringLiteral("Key events")), "*Pimloft may not type: nothing is pasted.");
}

TEST_F(MacDiagnosisTest, saysThatAnotherProgramKeepsTheKeyboard) {
    mac::setSecureInput(true);
    EXPECT_EQ(finding(QStringLiteral("Secure input")),
              "*Another program keeps the keyboard to itself: key mappings wait for it.");
}

TEST_F(MacDiagnosisTest, saysWhatBecameOfTheTap) {
    ASSERT_TRUE(tap_.install(std::make_shared<PassingFilter>()));
    EXPECT_EQ(finding(QStringLiteral("Key mappings")), "Active");
}

TEST_F(MacDiagnosisTest, saysThatThereIsNoOutput) {
    mac::soundSystem().output = 0;
    EXPECT_EQ(finding(QStringLiteral("Sound")), "*There is no output device: the volume mixer stays empty.");
}

}  // namespace

}  // namespace pimloft::test
