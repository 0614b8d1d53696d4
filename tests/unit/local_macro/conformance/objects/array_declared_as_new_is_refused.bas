' An array whose elements make themselves, declared As New, isn't covered.
'? 4:9 An array declared As New is not supported by this macro language
Sub main()
    Dim a(2) As New Collection
End Sub
