' Pictures are no values here.
'? 4:9 LoadPicture is not supported by this macro language
Sub main()
    x = LoadPicture("logo.bmp")
End Sub
