' Pictures can't be written either.
'? 4:5 SavePicture is not supported by this macro language
Sub main()
    SavePicture image, "logo.bmp"
End Sub
