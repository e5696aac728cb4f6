// The advertisement's five lines, byte for byte as they must reach the chat
// room (ANSI: 0x98 is the small tilde, 0xA0 the no-break space).
#pragma once

#include <string>
#include <vector>

inline std::vector<std::string> ExpectedAdvert()
{
    return {
        "</B></I></U>"
        "<FONT COLOR=#33e460>\x98"
        "<FONT COLOR=#66df48>\xA8"
        "<FONT COLOR=#99db30>\xA8"
        "<FONT COLOR=#ccd618>\xA8"
        "<FONT COLOR=#ffd200>\xA8"
        "<FONT COLOR=#fcba00>\x98"
        "<FONT COLOR=#f9a200>'"
        "<FONT COLOR=#f68a00>'"
        "<FONT COLOR=#f37200>\xB0"
        "<FONT COLOR=#f05a00>\xBA"
        "<FONT COLOR=#dc4400>^"
        "<FONT COLOR=#c82d00>v"
        "<FONT COLOR=#b41600>^"
        "<FONT COLOR=#a00000>^"
        "<FONT COLOR=#78001a>v"
        "<FONT COLOR=#500034>^"
        "<FONT COLOR=#28004f>~"
        "<FONT COLOR=#000069>*"
        "<FONT COLOR=#000000><B>I'm using Prismo!"
        "<FONT COLOR=#200054></B>*"
        "<FONT COLOR=#40003f>~"
        "<FONT COLOR=#60002a>^"
        "<FONT COLOR=#800015>v"
        "<FONT COLOR=#a00000>^"
        "<FONT COLOR=#b01200>^"
        "<FONT COLOR=#c02400>v"
        "<FONT COLOR=#d03600>^"
        "<FONT COLOR=#e04800>\xBA"
        "<FONT COLOR=#f05a00>\xB0"
        "<FONT COLOR=#f47800>'"
        "<FONT COLOR=#f89600>'"
        "<FONT COLOR=#fbb400>\x98"
        "<FONT COLOR=#ffd200>\xA8"
        "<FONT COLOR=#bfd81e>\xA8"
        "<FONT COLOR=#80dd3c>\xA8"
        "<FONT COLOR=#40e25a>\xA8"
        "<FONT COLOR=#00e878>\x98"
        "<FONT COLOR=#000000>",
        "<I>A cool tool to spice up your AOL 4.0 chat!</I>",
        " \xA0",
        "For more information, E-Mail <A HREF=mailto:prismo@zunsoftware.com?subject=Prismo_Info>"
        "prismo@zunsoftware.com</A>",
        "Or visit the <A HREF=http://www.zunsoftware.com>Zun Software</A> website!</HTML>",
    };
}
