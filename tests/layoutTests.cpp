#include "app/installationPaths.h"
#include "store/jStoreDialog.h"
#include "store/showAttention.h"
#include "tests/support/alertRobot.h"
#include "tests/support/componentText.h"
#include "tests/support/expectedText.h"
#include "tests/support/recordingListener.h"
#include "tests/support/scriptedServer.h"
#include "tests/support/temporaryInstallation.h"
#include "tests/support/waiting.h"
#include "ui/lookAndFeelKlangora.h"
#include <catch2/catch.hpp>

/** The page that shows, once it has faded in. */
static const juce::Component& pageOf (const jStoreDialog& dialog)
{
    waitFor ("the page", [] { return ! juce::Desktop::getInstance().getAnimator().isAnimating(); });

    for (auto* page : dialog.getChildren())
        if (page->isVisible())
            return *page;

    FAIL ("no page shows");
    return dialog;
}

TEST_CASE ("the window and each of its pages have what they are to have, where it is to be")
{
    const temporaryInstallation installation;
    installation.write ("rememberme.txt", "16.VBCyImenEXYEEhUHdWTFNB\n16.HBy6dSNsNccdfamSrJRFNB\n");
    lookAndFeelKlangora::install();
    scriptedServer server;
    const auto reply = [&] (const char* body) { server.reply (okReply (body)); };

    auto* const dialog = new jStoreDialog (nullptr);
    pageOf (*dialog);
    checkExpected ("window", componentText (*dialog->getTopLevelComponent()));

    dialog->handleMessage ("intro done", {}, {}, {});
    checkExpected ("account-remembered", componentText (pageOf (*dialog)));

    reply ("<r><sessiontoken>t</sessiontoken></r>");
    dialog->handleRequest ("POST auth", "me@example.org", "secret", {});
    checkExpected ("downloads", componentText (pageOf (*dialog)));
    delete dialog;
}

TEST_CASE ("the account page opens empty where no login is remembered")
{
    const temporaryInstallation installation;
    lookAndFeelKlangora::install();
    recordingListener dialog;
    const store_auth page (dialog, installationFolder);
    checkExpected ("account", componentText (page));
}

/** The box that is open, without what depends on the fonts of the machine. */
static juce::String boxText()
{
    auto& box =
        dynamic_cast<juce::AlertWindow&> (*juce::ModalComponentManager::getInstance()->getModalComponent (0));
    const auto isQuestion = box.getAlertType() == juce::MessageBoxIconType::QuestionIcon;
    juce::String text (isQuestion                                                 ? "question"
                       : box.getAlertType() == juce::MessageBoxIconType::InfoIcon ? "info"
                                                                                  : "another icon");
    text << ": " << box.getDescription() << "\n";

    for (auto* child : box.getChildren())
        if (auto* button = dynamic_cast<juce::TextButton*> (child))
            text << "  button " << button->getButtonText()
                 << (button->isRegisteredForShortcut (juce::KeyPress (juce::KeyPress::returnKey)) ? ", Return"
                                                                                                  : "")
                 << (button->isRegisteredForShortcut (juce::KeyPress (juce::KeyPress::escapeKey)) ? ", Escape"
                                                                                                  : "")
                 << "\n";

    return text;
}

TEST_CASE ("message boxes have the product's name, an icon, and buttons with their keys")
{
    const temporaryInstallation installation;
    lookAndFeelKlangora::install();
    alertRobot robot;
    juce::String boxes;
    robot.whileOpen = [&] { boxes << boxText(); };
    robot.answer ("Go back");

    auto* const dialog = new jStoreDialog (nullptr);
    showAttention ("Successfully downloaded: Amber Twin, Velvet Drive");
    dialog->requestClose();
    delete dialog;
    checkExpected ("boxes", boxes);
}
