# Turns the user's guide (docs/guide/*.md) into HTML pages, one per topic, with no tool beyond
# CMake. The guide uses a small part of Markdown: "#" headings, paragraphs, "-" lists, "1." lists,
# `code`, **bold** and [links](topic.md), which become links to the topic's page.
#
#   cmake -DSOURCE=docs/guide -DOUTPUT=build/guide -P GuideToHtml.cmake

function(escape_html text out)
    string(REPLACE "&" "&amp;" text "${text}")
    string(REPLACE "<" "&lt;" text "${text}")
    string(REPLACE ">" "&gt;" text "${text}")
    set(${out} "${text}" PARENT_SCOPE)
endfunction()

function(inline_markup text out)
    escape_html("${text}" text)
    string(REGEX REPLACE "\\*\\*([^*]+)\\*\\*" "<b>\\1</b>" text "${text}")
    string(REGEX REPLACE "`([^`]+)`" "<code>\\1</code>" text "${text}")
    string(REGEX REPLACE "\\[([^]]+)\\]\\(([A-Za-z0-9_-]+)\\.md\\)" "<a href=\"\\2.html\">\\1</a>"
        text "${text}")
    set(${out} "${text}" PARENT_SCOPE)
endfunction()

file(MAKE_DIRECTORY "${OUTPUT}")
file(GLOB pages "${SOURCE}/*.md")
foreach(page IN LISTS pages)
    get_filename_component(name "${page}" NAME_WE)
    file(STRINGS "${page}" lines ENCODING UTF-8)
    set(body "")
    set(title "${name}")
    set(open "")        # the element left open: p, ul or ol
    foreach(line IN LISTS lines)
        if(line MATCHES "^(#+) +(.*)$")
            string(LENGTH "${CMAKE_MATCH_1}" level)
            inline_markup("${CMAKE_MATCH_2}" heading)
            if(open)
                string(APPEND body "</${open}>\n")
                set(open "")
            endif()
            if(level EQUAL 1)
                set(title "${heading}")
            endif()
            string(APPEND body "<h${level}>${heading}</h${level}>\n")
        elseif(line MATCHES "^- +(.*)$" OR line MATCHES "^[0-9]+\\. +(.*)$")
            set(kind ul)
            if(line MATCHES "^[0-9]+\\. ")
                set(kind ol)
            endif()
            if(line MATCHES "^- +(.*)$" OR line MATCHES "^[0-9]+\\. +(.*)$")
                inline_markup("${CMAKE_MATCH_1}" item)
            endif()
            if(NOT open STREQUAL kind)
                if(open)
                    string(APPEND body "</${open}>\n")
                endif()
                string(APPEND body "<${kind}>\n")
                set(open ${kind})
            endif()
            string(APPEND body "<li>${item}</li>\n")
        elseif(line MATCHES "^[ \t]+([^ \t].*)$" AND (open STREQUAL "ul" OR open STREQUAL "ol"))
            # An indented line goes on with the item above it.
            inline_markup("${CMAKE_MATCH_1}" more)
            string(REGEX REPLACE "</li>\n$" " ${more}</li>\n" body "${body}")
        elseif(line MATCHES "^[ \t]*$")
            if(open)
                string(APPEND body "</${open}>\n")
                set(open "")
            endif()
        else()
            inline_markup("${line}" text)
            if(open STREQUAL "p")
                string(APPEND body " ${text}")
            else()
                if(open)
                    string(APPEND body "</${open}>\n")
                endif()
                string(APPEND body "<p>${text}")
                set(open p)
            endif()
        endif()
    endforeach()
    if(open)
        string(APPEND body "</${open}>\n")
    endif()
    string(REGEX REPLACE "<[^>]+>" "" plain_title "${title}")
    file(WRITE "${OUTPUT}/${name}.html"
"<!DOCTYPE html>
<html lang=\"en\"><head><meta charset=\"utf-8\">
<title>${plain_title} - Corvane Help</title>
<style>body{font-family:sans-serif;max-width:46em;margin:2em auto;line-height:1.45;color:#222}
code{background:#f2f2f2;padding:0 .2em}h1{font-size:1.6em}a{color:#1a5fb4}</style>
</head><body>
${body}<p><a href=\"index.html\">Contents</a></p>
</body></html>
")
endforeach()
