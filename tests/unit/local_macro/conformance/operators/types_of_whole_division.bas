' \ and Mod give the larger whole type of both operands, Long for floating numbers and texts.
'> Byte Integer Long Long Long Long LongLong
Sub main()
    Debug.Print TypeName(CByte(7) \ CByte(2)) & " " & TypeName(7 \ CByte(2)) & " " & TypeName(7 \ 2&) & " " & _
        TypeName(7# \ 2#) & " " & TypeName("7" Mod "2") & " " & TypeName(7@ Mod 2@) & " " & TypeName(CLngLng(7) \ 2)
End Sub
