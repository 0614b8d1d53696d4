' Width #, which breaks printed lines, isn't covered.
'? 4:5 Width # is not supported by this macro language
Sub main()
    Width #1, 40
End Sub
