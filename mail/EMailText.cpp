// The e-mail side's words and decisions: the toolbar's refusals, the faded
// sample of a stored scheme and the composition of a scheme mail.
#include "EMailText.h"

#include <algorithm>
#include <cctype>

#include "Convert.h"
#include "Maker.h"
#include "Schemes.h"
#include "modFade.h"

HighlightCheck CheckHighlight(const std::string& copied)
{
    if (copied.find_first_not_of(' ') == std::string::npos) return HighlightCheck::NoText;
    if (copied.size() > kEFadeLimit) return HighlightCheck::TooLong;
    return HighlightCheck::Fade;
}

namespace {

ColorValue ColorOrZero(const std::string& text) { return ToLong(text).value_or(0); }
bool OnOrOff(const std::string& text) { return ToBool(text).value_or(false); }

std::string FadedSample(const SchemeTexts& scheme, const std::string& text)
{
    ColorValue c[6];
    for (int i = 0; i < 6; ++i) c[i] = ColorOrZero(scheme.colors[i]);
    const bool wavy = OnOrOff(scheme.wavy);
    switch (ToInteger(scheme.fadeNumber).value_or(0)) {
    case 1: return MakeOneSolidFade(text, c[0], wavy);
    case 2: return FadeByColor2(c[0], c[1], text, wavy);
    case 3: return FadeByColor3(c[0], c[1], c[2], text, wavy);
    case 4: return FadeByColor4(c[0], c[1], c[2], c[3], text, wavy);
    case 5: return FadeByColor5(c[0], c[1], c[2], c[3], c[4], text, wavy);
    case 6: return FadeByColor6(c[0], c[1], c[2], c[3], c[4], c[5], text, wavy);
    default: return "";
    }
}

std::string Link(const std::string& address, const std::string& text)
{
    return "<A HREF=\"" + address + "\">" + text + "</A>";
}

std::string Separator()
{
    return "</FONT><FONT  SIZE=3 PTSIZE=10><U>" + std::string(62, '_') + "</U>\r\n" + std::string(62, '\xAF') +
           "\r\n";
}

std::string SchemePart(const std::vector<MailedScheme>& schemes, bool showSample)
{
    std::string part;
    for (const MailedScheme& scheme : schemes) {
        if (showSample)
            part += "<B><U><FONT COLOR=#000000>" + scheme.name + "</B></U>\r\n" + scheme.sample + "\r\n\r\n";
        else
            part += "<FONT COLOR=#000000>" + scheme.name + (schemes.size() == 1 ? "" : ", ");
    }
    return part;
}

std::string Summary(std::size_t count)
{
    return "<Font Color=#000000 Size=2><B>Number of Fade Schemes in this zip file<Font Color=#0000ff Size=3><I>\r" +
           std::to_string(count) + "\r</B></I><Font Color=#000000 Size=3>" +
           "\x98\xA8\xA8\xA8\xA8\x98''\xB0\xBA\xBA\xB0''\x98\x98''\xB0\xBA\xBA\xB0''\x98\x98''\xB0\xBA\xBA\xB0''\x98\x98"
           "\xA8\xA8\xA8\xA8\x98\r\n\r\n<B>Fade Schemes included in this zip file</B>\r\n\r\n";
}

}  // namespace

std::string MakeEMailFade(const SettingsStore& store, const std::string& name)
{
    const SchemeTexts scheme = ReadScheme(store, name);
    std::string sample = FadedSample(scheme, "This is a sample of the " + name + " fade scheme!");
    if (OnOrOff(scheme.bold)) sample = "<B>" + sample + "</B>";
    if (OnOrOff(scheme.italic)) sample = "<I>" + sample + "</I>";
    if (OnOrOff(scheme.uline)) sample = "<U>" + sample + "</U>";
    return sample;
}

std::string DirectionsTag()
{
    return "</P><P ALIGN=LEFT></FONT><FONT COLOR=#000000 SIZE=3 PTSIZE=9><B><U>Directions for installing:</FONT>"
           "<FONT  SIZE=2 PTSIZE=8></B></U>\r\n"
           "You must have Zun Software's " +
           Link(Maker::TuneboxPage, "Tunebox 32 - 9.x") + " or " + Link(Maker::ProductPage, "Prismo") +
           " program installed on your computer.\r\n\r\n"
           "<I>Detailed installation instructions are located within your Tunebox 32 or Prismo Help file.</I>\r\n\r\n";
}

std::string SchemeMailSubject(std::size_t count, const std::string& sender)
{
    if (count == 1) return "A \"Prismo\" Fade Scheme from " + sender;
    return "Zip of \"Prismo\" Fade Schemes from " + sender;
}

std::string SchemeMailBody(const std::vector<MailedScheme>& schemes, const std::string& sender,
                           const std::string& version, bool showSample)
{
    const bool one = schemes.size() == 1;
    const std::string introduction = std::string("</FONT><FONT  SIZE=2 PTSIZE=8>") +
                                     (one ? "This Fade Scheme was " : "These Fade Schemes were ");
    std::string body = "<HTML><PRE></P><P ALIGN=CENTER>";
    body += introduction + "brought to you by <B>" + sender +
            " </B>using <B>Prismo - <FONT COLOR=#0000ff FONT  SIZE=2 PTSIZE=8>Rev " + version + "\r\n";
    body += "</FONT><FONT COLOR=#000000 SIZE=2></B>Get your copy now at the " +
            Link(Maker::WebSite, "Zun Software") + " website!\r\n";
    body += "</FONT><FONT COLOR=#000000 SIZE=2>" + Separator();
    if (!one) body += Summary(schemes.size());
    body += SchemePart(schemes, showSample);
    body += "<FONT COLOR=#000000>" + Separator();
    body += DirectionsTag();
    body += "</B></I></U><FONT COLOR=#000000>\r\n\r\n</PRE></HTML>";
    return body;
}

std::string UnfitNamesMessage(const std::vector<std::string>& names)
{
    return UnfitNamesMessage("These Fade Schemes cannot be e-mailed:", names, "try again.");
}
