-- A picture that is not there is left out, so that the manual can be built without it.
function Image(image)
    local file = io.open(image.src)
    if file then
        file:close()
        return nil
    end
    io.stderr:write("manual: without " .. image.src .. ", which is not there\n")
    return {}
end
