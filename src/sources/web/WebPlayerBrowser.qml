// The browser, from its plugin.
import ZephPlayer.Sources.Browser

Browser { }
