// The maker's addresses: the advertisement, the online support command, the
// scheme mailer's body and the update check all point here. Change them here only.
#pragma once

namespace Maker {
inline constexpr char EMail[] = "prismo@zunsoftware.com";
inline constexpr char WebSite[] = "http://www.zunsoftware.com";
// The product's page and the sibling program's, on the web site.
inline constexpr char ProductPage[] = "http://www.zunsoftware.com/prismo/index.html";
inline constexpr char TuneboxPage[] = "http://www.zunsoftware.com/tunebox/index.html";
// The upgrade check asks this host for the posted version; its messages name
// the site and the address to write to when the answer makes no sense.
inline constexpr char Host[] = "www.zunsoftware.com";
inline constexpr char SiteName[] = "Zun Software";
inline constexpr char SupportEMail[] = "support@zunsoftware.com";
}  // namespace Maker
