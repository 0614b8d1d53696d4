' LSet between records of different types, which copies memory, isn't covered.
'? 13:14 LSet between different user-defined types is not supported by this macro language
Type One
    n As Long
End Type

Type Two
    n As Long
End Type

Sub main()
    Dim a As One, b As Two
    LSet a = b
End Sub
