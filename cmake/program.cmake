# What the program says of itself, in one place: the code, the Windows resources and the packages all take these.

set (PROGRAM_NAME "Dorvik Rigmart")
set (PROGRAM_MAKER "Dorvik Electronics")
set (PROGRAM_CONTACT "support@dorvik.example")
set (PROGRAM_VERSION ${PROJECT_VERSION})
set (PROGRAM_BUILD_DATE "15.04.06")      # YY.MM.DD
set (PROGRAM_RELEASE_DATE "Mon, 06 Apr 2015 12:00:00 +0000")    # the same day, as package changelogs write it
set (PROGRAM_RELEASE_DAY "2015-04-06")                          # and as software centres and parts lists do
set (PROGRAM_RELEASE_EPOCH 1428321600)                          # and in seconds since 1970: the time of every file
set (PROGRAM_PRODUCT "Klangora 4")       # what the store's content is for
string (TOLOWER ${PROGRAM_PRODUCT} PROGRAM_PRODUCT_LOWER)    # as its files are called
