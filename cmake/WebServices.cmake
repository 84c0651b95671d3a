# Who the video services are, and who we are to them: the one place to change it, or -D… on the
# command line.
set(ZEPH_WEB_ORIGIN "https://zephplayer.example" CACHE STRING
    "The web origin of the product: https, without a slash at the end")
set(ZEPH_YOUTUBE_MAIN_HOST "youtube.com" CACHE STRING "YouTube's main domain")
set(ZEPH_YOUTUBE_SHORT_HOST "youtu.be" CACHE STRING "YouTube's domain of short links")
set(ZEPH_YOUTUBE_NO_COOKIE_HOST "youtube-nocookie.com" CACHE STRING
    "YouTube's domain of embedded players without cookies")
set(ZEPH_OK_MAIN_HOST "ok.ru" CACHE STRING "OK's main domain")

if(NOT ZEPH_WEB_ORIGIN MATCHES "^https://[a-z0-9.-]+(:[0-9]+)?$")
    message(FATAL_ERROR "ZEPH_WEB_ORIGIN is no https origin: ${ZEPH_WEB_ORIGIN}")
endif()
foreach(host YOUTUBE_MAIN YOUTUBE_SHORT YOUTUBE_NO_COOKIE OK_MAIN)
    # Addresses are compared in lower case.
    if(NOT ZEPH_${host}_HOST MATCHES "^[a-z0-9-]+(\\.[a-z0-9-]+)+$")
        message(FATAL_ERROR "ZEPH_${host}_HOST is no domain: ${ZEPH_${host}_HOST}")
    endif()
endforeach()
